#pragma once
// The vocabulary of the declaration: its boxes and the items without a box, with every fact
// the form, the windows, the command, the exporter and the report read about them.
#include <QString>
#include <QVector>

// What a row is: a box the user types (Entrada), a box the form computes (Calculada), a box
// whose figure is made in its annex or carries a part of it (Asistente), a box of text
// (Texto); an item without a box that the user answers or types (SinCaja), one the form
// derives and stores itself (Derivada), and a number of the family's annual form that has
// no place here but keeps its storage and printing rules (Ajena).
enum class TipoCasilla { Entrada, Calculada, Asistente, Texto, SinCaja, Derivada, Ajena };
// How a box shows its figure once left.
enum class Presentacion { Simple, Parentesis, Totales, Coeficiente, Texto };
// What the value is.
enum class ClaseDato { Importe, Respuesta, Codigo, Fecha, Texto };
// How i_valor is written: the amount without separators (Cifra), as it stands (Texto), or
// the coefficient with the picture of its year and payment system.
enum class Grabacion { Cifra, Texto, Coeficiente };
// What `f931 exportar` prints for a stored value: nothing (No), the value as stored (Tal),
// its bare digits (Digitos), its annex parts (Partes), a list index when it names an item
// (Indice), the digits only under a stability agreement (SiConvenio).
enum class Exportacion { No, Tal, Digitos, Partes, Indice, SiConvenio };
// The block of the printed declaration where the box has its line.
enum class BloqueInforme { No, Activo, Pasivo, Patrimonio, Resultados, Renta, Mype, Anexo473, Anexo477 };

// Marks of a row.
inline constexpr unsigned kConSigno = 1;    // shown in parentheses when left, stored and loaded signed
inline constexpr unsigned kSoloMype = 2;    // applies only under the MYPE regime
inline constexpr unsigned kDesde2013 = 4;   // printed from 2013 on
inline constexpr unsigned kNombrada = 8;    // the report also keeps it among its named texts

struct DefCasilla {
    int numero;
    const char* etiqueta;          // UTF-8, as the form shows it
    const char* etiquetaInforme;   // as the printed declaration shows it; nullptr: no line
    TipoCasilla tipo;
    Presentacion presentacion;
    ClaseDato clase;
    const char* control;           // the list that fills the box, or the control of an item without a box
    const char* marco;             // the frame where the box stands ("portadores": never shown)
    int fila;                      // row inside its frame
    int columna;                   // column of rows inside its frame
    int largo;                     // length when the form opens; 0: no limit
    Grabacion grabacion;
    Exportacion exportacion;
    BloqueInforme bloque;
    unsigned marcas;
};

// The 109 boxes in the order of mvCasillas: 500 to 555, 432, 433, 250 to 253, 461 to 464,
// 466 to 473, 475 to 478, 480, 481, 483 to 487, 489, 490, 492, 493, 100, 101, 103,
// 105 to 108, 150, 110, 111, 113, 208, 209, 211, 212, 225, 226, 610, 650, 651.
const QVector<int>& ordenCasillas();
// Every row of the table, boxes first, in the table's order.
const QVector<const DefCasilla*>& filasCasillas();
const DefCasilla* defCasilla(int numero);     // nullptr: no row of that number
bool existeCasilla(int numero);               // a box of the form
bool tieneMarca(int numero, unsigned marca);
// The boxes with a mark, in the table's order (kSoloMype: 250 to 253).
QVector<int> casillasConMarca(unsigned marca);
// The boxes of one frame, by row (and column), as the window lays them out; a column of -1
// takes every column.
QVector<const DefCasilla*> casillasDelMarco(const char* marco, int columna = -1);
// The boxes with a line in a block of the printed declaration, in the table's order; with a
// year, only those printed in that year.
QVector<const DefCasilla*> casillasDelBloque(BloqueInforme bloque, int anio = 0);
// The carriers of the annex of an assistant box (473: 650 and 651; 477: 432 and 433), empty
// for any other box.
QVector<int> partesDelAnexo(int numero);
// The assistant boxes shown on the form: their figure is made in their annex, never typed.
bool esAsistida(int numero);
// The boxes whose amount subtracts and shows between parentheses (the numbers of the family's
// annual form that have no box here count too).
bool esParentesis(int numero);
// Computed boxes: grey and locked by design (113 is grey but not locked).
bool esCalculada(int numero);
// Casilla code as stored in DET: three digits ("002", "028", "500").
QString codigoCasilla(int numero);
