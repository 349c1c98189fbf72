#pragma once
// The one connection of the process (gdbBase) and the way every statement goes through it.
// Values are bound as parameters, never pasted into SQL text. A failing statement throws
// ErrorVB with the engine's text, so the handlers that trap errors can show it.
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>

// Opens the file as the one shared connection (busy timeout, WAL, foreign keys off) and keeps
// its name in G().gdbBase. Before anything can be written, a read-only look tells a database of
// this module (the tables of the family that it reads and writes) from any other file, so a
// file that is refused is left byte for byte as it was. A file that is missing, unreadable, not
// a database, a database of another program, read-only, or locked beyond the wait throws
// ErrorVB 3051 (the "Base esta bloqueda" path of the start-up) with a Spanish text that names
// the file and says what to do.
void abrirBase(const QString& archivo);
void cerrarBase();
QSqlDatabase gdbBase();

// How long a statement waits for another program's lock before the database counts as
// unavailable.
inline constexpr int kEsperaBloqueoMs = 5000;

// Tables a database must have to be taken as the family's shared database.
const QStringList& tablasDelModulo();

// The text of the last time the open database was found unavailable (locked beyond the wait,
// read-only, gone), empty when it never was since it was opened. A handler that shows errors
// and goes on (the save of the form) leaves it here for a caller that must tell "database
// unavailable" from a refusal of the rules.
QString baseNoDisponible();
// Forgets that text: a batch asks it afresh for each declaration.
void olvidarNoDisponible();

// Prepares, binds the values in order and runs; throws ErrorVB on failure: 3051 when the
// database is unavailable (locked beyond the wait, read-only), else 3146 with the engine's text.

// A batch of saves in one process (f931 importar of several declarations): each commit still
// stands whole or not at all, but no longer waits for the disk (synchronous NORMAL under the
// WAL journal); terminarLote() writes the journal into the file, waiting once for them all.
void empezarLote();
void terminarLote();

QSqlQuery ejecutar(const QString& sql, const QVariantList& valores = {});
// First column of the first row, or an invalid QVariant when there is no row.
QVariant escalar(const QString& sql, const QVariantList& valores = {});

// One transaction around a multi-statement change: commit() makes it stand; leaving the
// scope without commit() rolls everything back. Nested objects are safe: while one is open,
// an inner one neither begins nor commits (the outer one decides), and an inner one left
// without commit() makes the outer commit() roll back and throw.
class Transaccion {
public:
    Transaccion();
    ~Transaccion();
    void commit();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
private:
    bool activa_ = false;      // this object began the engine's transaction
    bool contada_ = false;     // this object counts in the nesting depth
    bool confirmada_ = false;
};
