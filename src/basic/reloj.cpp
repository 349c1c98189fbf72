#include "basic/reloj.h"

#include <QTime>

namespace {
QDate g_fijada;   // set by fijarHoy; invalid when not set
}

QDate Hoy()
{
    if (g_fijada.isValid())
        return g_fijada;
    const QByteArray entorno = qgetenv("F931_HOY").trimmed();
    if (!entorno.isEmpty()) {
        const QDate fecha = QDate::fromString(QString::fromLatin1(entorno), QStringLiteral("yyyy-MM-dd"));
        if (fecha.isValid())
            return fecha;
    }
    return QDate::currentDate();
}

QDateTime Ahora() { return QDateTime(Hoy(), QTime::currentTime()); }

void fijarHoy(const QDate& fecha) { g_fijada = fecha; }
