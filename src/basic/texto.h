#pragma once
// Text and number words of the rules: Val, Str, Trim, Left, Mid, Abs, IsNumeric, CInt.
// Positions count from 1. Separators are always "," (thousands) and "." (decimals).
#include <QString>

// Longest leading number; blanks, tabs and line feeds anywhere are skipped; "1e3" is 1000;
// "&H1F" and "&O17" are read; nothing is 0.
double Val(const QString& texto);
// Number as text with a leading blank when not negative (" 5", "-5", " .5", " 1E+16").
QString Str(double valor);
QString Str(qint64 valor);
inline QString Str(int valor) { return Str(static_cast<qint64>(valor)); }
QString Trim(const QString& texto);   // blanks only (not tabs), both ends
QString LTrim(const QString& texto);
QString RTrim(const QString& texto);
QString Left(const QString& texto, int n);
QString Right(const QString& texto, int n);
QString Mid(const QString& texto, int inicio);          // to the end
QString Mid(const QString& texto, int inicio, int n);
QString Space(int n);
QString UCase(const QString& texto);
double Abs(double v);
int Len(const QString& texto);
// IsNumeric: "1,234", " 12 ", "-5", "(1,234)", "1e3" are numeric; "" and "abc" are not.
bool IsNumeric(const QString& texto);
// The numeric value that a numeric text stands for ("(1,234)" -> -1234, "1,234" -> 1234).
// Precondition: IsNumeric(texto). Throws ErrorVB 13 otherwise.
double CDbl(const QString& texto);
// IsNumeric and CDbl in one step: false (valor untouched) when the text is no number.
bool LeerNumerico(const QString& texto, double& valor);
// Conversion to a 16-bit integer, rounding halves to even; overflow throws ErrorVB 6.
qint16 CInt(double v);
qint32 CLng(double v);
// String comparison as the rules use it (binary, case-sensitive).
inline bool Igual(const QString& a, const QString& b) { return a == b; }
