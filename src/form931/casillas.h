#pragma once
// The vocabulary of the declaration: its boxes, their order, labels and kinds.
#include <QString>
#include <QVector>

enum class TipoCasilla { Entrada, Calculada, Asistente, Texto };
enum class Presentacion { Simple, Parentesis, Totales, Coeficiente, Texto };

struct DefCasilla {
    int numero;
    const char* etiqueta;        // UTF-8
    TipoCasilla tipo;
    Presentacion presentacion;
};

// The 109 boxes in the order of mvCasillas: 500 to 555, 432, 433, 250 to 253, 461 to 464,
// 466 to 473, 475 to 478, 480, 481, 483 to 487, 489, 490, 492, 493, 100, 101, 103,
// 105 to 108, 150, 110, 111, 113, 208, 209, 211, 212, 225, 226, 610, 650, 651.
const QVector<int>& ordenCasillas();
const DefCasilla* defCasilla(int numero);     // nullptr: no box of that number
bool existeCasilla(int numero);
// The boxes whose amount subtracts and shows between parentheses (the numbers of the family's
// annual form that have no box here stay in the list).
bool esParentesis(int numero);
// Computed boxes: grey and locked by design (113 is grey but not locked).
bool esCalculada(int numero);
// Casilla code as stored in DET: three digits ("002", "028", "500").
QString codigoCasilla(int numero);
