#pragma once
// One "today" for all code. The environment variable F931_HOY=AAAA-MM-DD (or fijarHoy, used
// by the CLI's --hoy) fixes the date; the time of day stays the real one.
#include <QDate>
#include <QDateTime>

QDate Hoy();
QDateTime Ahora();
void fijarHoy(const QDate& fecha);   // an invalid date returns to the environment / real clock
