// The readers of numbers on any text: Val, IsNumeric and CDbl, the integer and currency
// conversions of what they read, and the way the form reads an amount (the text taken through
// the plain picture, then Val and CCur). Run-time errors are answers; anything else is a finding.
#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/moneda.h"
#include "basic/texto.h"

#include <QByteArray>

#include <cstdint>
#include <cstdlib>

namespace {

template <typename F>
void intenta(F&& f)
{
    try {
        f();
    } catch (const ErrorVB&) {
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamano)
{
    const QString texto = QString::fromUtf8(reinterpret_cast<const char*>(datos), qsizetype(tamano));
    intenta([&] {
        const double v = Val(texto);
        Str(v);
        intenta([&] { CInt(v); });
        intenta([&] { CLng(v); });
        intenta([&] { (CCur(v) + CCur(v)) * CCur(v); });
    });
    double leido = 0;
    const bool numerico = IsNumeric(texto);
    intenta([&] {
        // What IsNumeric accepts, CDbl converts, to the same value.
        if (LeerNumerico(texto, leido) != numerico || (numerico && CDbl(texto) != leido))
            std::abort();
    });
    intenta([&] { CCur(Val(Format(texto, Mascara::SinPicture))); });
    return 0;
}
