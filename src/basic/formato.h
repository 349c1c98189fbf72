#pragma once
// Format with the pictures in use. A double is first taken to 15 significant digits, then
// rounded half away from zero to the picture's decimals. Text that is no number passes
// through unchanged; "" stays ""; "1,234" reads 1234 and "(1,234)" reads -1234.
//
// Numeric pictures: "#" a digit if there is one, "0" a digit always, "," thousands
// separator, "." decimal point, ";" begins the section for negative numbers (shown without
// the minus sign), any other character stands as it is. A negative number without a
// negative section gets a leading "-". Examples:
//   Format("1234", "###,###,###,##0")                       -> "1,234"
//   Format("-1234", "###,###,###,##0;(###,###,###,##0)")   -> "(1,234)"
//   Format("1234", "(###,###,###,##0)")                     -> "(1,234)"
//   Format("(1,234)", "###########0")                       -> "-1234"
//   Format("0", "########")                                 -> ""
//   Format("5", "0#")                                       -> "05"
//   Format("0.33335", "###,###,###,##0.0000")               -> "0.3334"
// Date pictures: "dd/mm/yyyy", "yyyymmdd", "yyyy", "hh:mm:ss" (and "mm" = month when a date
// picture, minutes after "hh:").
//
// Overflow: a double that is no finite number, or a date number outside the runtime's dates
// (1 January 100 to 31 December 9999) with a date picture, throws ErrorVB 6 "Desbordamiento",
// as does a text whose number is beyond a double ("1e400"). A text that reads as such a date
// number is no date and passes through unchanged.
#include <QDate>
#include <QDateTime>
#include <QString>

QString Format(const QString& texto, const QString& picture);
QString Format(double valor, const QString& picture);
QString Format(qint64 valor, const QString& picture);
inline QString Format(int valor, const QString& picture) { return Format(static_cast<qint64>(valor), picture); }
QString Format(const QDate& fecha, const QString& picture);
QString Format(const QDateTime& momento, const QString& picture);

// Pictures in use, named once.
namespace Mascara {
inline const QString Positivo = QStringLiteral("###,###,###,##0");
inline const QString Perdida = QStringLiteral("(###,###,###,##0)");
inline const QString Totales = QStringLiteral("###,###,###,##0;(###,###,###,##0)");
inline const QString SinPicture = QStringLiteral("###########0");
inline const QString Coeficiente = QStringLiteral("###,###,###,##0.0000");
inline const QString Porcentaje = QStringLiteral("###,###,###,##0.00");
inline const QString Fecha = QStringLiteral("dd/mm/yyyy");
}
