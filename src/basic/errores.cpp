#include "basic/errores.h"

ErrorVB errorDesbordamiento() { return ErrorVB(kErrDesbordamiento, QStringLiteral("Desbordamiento")); }
ErrorVB errorArgumento()
{
    return ErrorVB(kErrArgumento, QStringLiteral("Llamada a procedimiento o argumento no válidos"));
}
ErrorVB errorDivisionCero() { return ErrorVB(kErrDivisionCero, QStringLiteral("División por cero")); }
ErrorVB errorTipos() { return ErrorVB(kErrTipos, QStringLiteral("No coinciden los tipos")); }
ErrorVB errorBaseDatos(const QString& texto, int numero) { return ErrorVB(numero, texto); }
