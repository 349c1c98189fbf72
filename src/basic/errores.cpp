#include "basic/errores.h"

ErrorVB errorDesbordamiento() { return ErrorVB(kErrDesbordamiento, QStringLiteral("Desbordamiento")); }
ErrorVB errorBaseDatos(const QString& texto, int numero) { return ErrorVB(numero, texto); }
