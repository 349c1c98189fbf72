#pragma once
// General procedures of the data store.
#include <QDate>
#include <QSqlRecord>
#include <QString>
#include <QStringList>
#include <QVariantList>

// Six-digit check code of a row about to be written: `fila` holds every column of the table in
// table order with the values in hand (cNumero last, not counted); `claves` is 5 for CAB and
// F0931_PTCEA, 6 for HCAB and DET. The 16-bit product of the second sum overflows into
// ErrorVB 6, uncaught here.
QString CodigoFila(const QSqlRecord& fila, int claves);
// The same over the values of every column in table order (the last one, cNumero, not counted),
// for a row written with bound values. Integers and doubles count as Str gives them, dates as
// "yyyymmdd", texts trimmed, anything else (null included) as "".
QString CodigoFila(const QVariantList& valores, int claves);
// The check code of a row as its table holds it, read back by its rowid: the code that
// CodigoFila gives for that stored row, columns the schema declares DATE or DATETIME counting
// as dates. The record form of CodigoFila reads such columns the same way when the record
// names its table.
QString codigoFilaGuardada(const QString& tabla, qint64 rowid, int claves);
// Writes into the stored row (by rowid) the code codigoFilaGuardada gives: every writer of a
// row that holds a date seals it this way, so the code is that of the row as it stands.
void sellarFila(const QString& tabla, qint64 rowid, int claves);
// Registers a new report file in SPOOL and returns its name: eight digits and ".PRN".
QString pRegistraSpool(const QString& codRep, int tipoDoc, const QString& docId);
QString MensajeError(int codigo);
QString TipoUsuario();
bool ValidaDocumento(const QString& tipo, const QString& numero);
// The taxpayer list of the user in hand, as a statement with "?" markers and the values to
// bind to them in order. ComboContribuyentes gives its text; pCargaContrib runs it.
struct Sentencia {
    QString sql;
    QVariantList valores;
};
Sentencia sentenciaContribuyentes(const QString& formulario);
QString ComboContribuyentes(const QString& formulario);   // text of sentenciaContribuyentes
QString DigitoVerificador(const QString& control, const QString& orden);
bool FechaNoFutura(const QString& fecha);                  // "dd/mm/yyyy"
QString FechaTexto(const QString& yyyymmdd);               // -> "dd/mm/yyyy"; "" unchanged
QString fSuma(qint16& variable, qint16 incremento);        // overflow: ErrorVB 6

// Deletion of a whole declaration, as the pickers do it, in one transaction (all or nothing).
// Working: F0931_PTCEA, ACTA, DET, CAB in this order, keyed by TIP_DOC_D 6 and G().gsFormulario.
void eliminarDeclaracion(const QString& ruc, const QString& periodo);
// Sent: HACTA, HDET, HCAB, HF0931_PTCEA in this order, each with CORREL. In HDET the type
// condition is only "not zero" (any type but 0), as the family's statement has it.
void eliminarDeclaracionEnviada(const QString& ruc, const QString& periodo, const QString& correl);
