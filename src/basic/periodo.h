#pragma once
// The month of a declaration's period ("yyyymm"): read from the period, or set by its
// balance date.
#include <QString>

// The month of a period, "mm": the last two characters of "yyyymm" (or of "yyyy/mm"); ""
// for a period given as a year alone.
QString mesDelPeriodo(const QString& periodo);
// The month that the balance date of the list (0: the first half, 1: the whole year) gives
// the period: "01" and "06" before 2013, "05" and "08" from 2013 on; "" when none is chosen.
QString mesDeBalance(int indiceBalance, bool desde2013);
