// The input of the declaration commands of f931 (ENTRADA.json) on any bytes: bad input is
// refused with ErrorEntrada; anything else is a finding.
#include "cli/entrada.h"

#include <QByteArray>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamano)
{
    try {
        leerEntrada(QByteArray(reinterpret_cast<const char*>(datos), qsizetype(tamano)));
    } catch (const ErrorEntrada&) {
    }
    return 0;
}
