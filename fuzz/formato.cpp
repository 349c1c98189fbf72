// Format on any text and picture. The input is the text, a line feed and the picture (no line
// feed: the picture of the totals); its first eight bytes are also formatted as a double and
// as an integer with that picture. An overflow error is an answer; anything else is a finding.
#include "basic/errores.h"
#include "basic/formato.h"

#include <QByteArray>

#include <cstdint>
#include <cstring>

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
    const QByteArray bytes(reinterpret_cast<const char*>(datos), qsizetype(tamano));
    const qsizetype corte = bytes.indexOf('\n');
    const QString texto = QString::fromUtf8(corte < 0 ? bytes : bytes.left(corte));
    const QString picture = corte < 0 ? Mascara::Totales : QString::fromUtf8(bytes.mid(corte + 1));
    intenta([&] { Format(texto, picture); });
    if (tamano >= 8) {
        double real;
        qint64 entero;
        std::memcpy(&real, datos, sizeof real);
        std::memcpy(&entero, datos, sizeof entero);
        intenta([&] { Format(real, picture); });
        intenta([&] { Format(entero, picture); });
    }
    return 0;
}
