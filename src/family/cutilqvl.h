#pragma once
// The family's helper object (gobjUtil). Operations as the module calls them.
#include <QString>

class cUtilQVL {
public:
    bool ExisteArchivo(const QString& archivo) const;
    // 11 digits, first two 10, 15, 16, 17 or 20, weights 5 4 3 2 7 6 5 4 3 2,
    // check digit 11 - (sum mod 11), 10 -> 0, 11 -> 1.
    bool ValidaRuc(const QString& ruc) const;
    // A digit string of at least 9 characters that depends only on the text.
    QString CodigoHash(const QString& texto) const;
    // Padded with blanks on the right to the length (cut when longer).
    QString Rellena(const QString& texto, int longitud) const;
    // Padded with blanks on the left to the width; unchanged when already as wide.
    QString AjustaColumna(const QString& texto, int ancho) const;
    // True when the "dd/mm/yyyy" date is valid and lies within the bounds (same form).
    bool FechaEnRango(const QString& fecha, const QString& desde, const QString& hasta) const;
    // Digits only (empty is no number). op1 lets one decimal point in, op2 a leading minus.
    bool EsNumero(const QString& texto, bool op1, bool op2) const;
    // Key-press filter for digit boxes: the key (a character code) if it may be typed, else 0.
    // Digits and Backspace (8) pass; Enter (13) is refused (0), as is everything else.
    // op1 lets "." through, op2 "-", op3 the blank.
    int TeclaNumero(int tecla, bool op1, bool op2, bool op3) const;
    // An alphanumeric document number: ASCII letters, digits and "-" (empty is none).
    // op1 lets blanks in, op2 ".", op3 "/".
    bool EsTexto(const QString& texto, bool op1, bool op2, bool op3) const;
    // True when DigitoVerificador(control, orden) equals the check digits given.
    bool ValidaOrden(const QString& control, const QString& orden, const QString& verifica) const;
    // Key-press filter for name boxes: letters (accented too), digits, blank, "-", ".", "&",
    // "'", Backspace; lower case turned to upper case; else 0.
    int TeclaTexto(int tecla) const;

private:
    // The two check digits of an order number: the 9th character of the control number's hash,
    // then the last character of the hash of control + order + that digit. The data store's
    // DigitoVerificador computes the same.
    QString digitoVerificador(const QString& control, const QString& orden) const;
};

// G().gobjUtil, created on first use.
cUtilQVL& gobjUtil();
