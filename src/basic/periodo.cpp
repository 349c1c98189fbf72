#include "basic/periodo.h"

QString mesDelPeriodo(const QString& periodo)
{
    return periodo.size() >= 6 ? periodo.right(2) : QString();
}

QString mesDeBalance(int indiceBalance, bool desde2013)
{
    switch (indiceBalance) {
    case 0: return desde2013 ? QStringLiteral("05") : QStringLiteral("01");
    case 1: return desde2013 ? QStringLiteral("08") : QStringLiteral("06");
    default: return QString();
    }
}
