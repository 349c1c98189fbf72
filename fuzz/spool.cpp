// The reader of the spool files on any bytes. The first byte chooses the replay (bit 0: the
// printer, bit 1: a page range from the next two bytes); the rest is the file. Run-time errors
// end a replay and are answers; anything else is a finding.
#include "basic/errores.h"
#include "reports/reproduccion.h"
#include "reports/spool.h"

#include <QByteArray>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t tamano)
{
    if (tamano < 3)
        return 0;
    const bool impresora = datos[0] & 1;
    const RangoHojas rango{(datos[0] & 2) != 0, qint16(datos[1] % 8), qint16(datos[2] % 16)};
    const QStringList lineas = lineasSpool(QByteArray(reinterpret_cast<const char*>(datos) + 3, qsizetype(tamano - 3)));
    const DocumentoSpool doc = reproduceSpool(lineas, impresora, rango, qint16(datos[1] % 4));
    colorRuntime(doc.colorFondo);
    try {
        numeroDeHojas(lineas);
    } catch (const ErrorVB&) {
    }
    return 0;
}
