#pragma once
// The one connection of the process (gdbBase) and the way every statement goes through it.
// Values are bound as parameters, never pasted into SQL text. A failing statement throws
// ErrorVB with the engine's text, so the handlers that trap errors can show it.
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVariantList>

// Opens the file as the one shared connection (busy timeout, WAL, foreign keys off) and keeps
// its name in G().gdbBase. A file that is missing, locked or not a database throws ErrorVB
// 3051 ("Base esta bloqueda" path of the start-up) or another number with the engine's text.
void abrirBase(const QString& archivo);
void cerrarBase();
QSqlDatabase gdbBase();

// A batch of saves in one process (f931 importar of several declarations): each commit still
// stands whole or not at all, but no longer waits for the disk (synchronous NORMAL under the
// WAL journal); terminarLote() writes the journal into the file, waiting once for them all.
void empezarLote();
void terminarLote();

// Prepares, binds the values in order and runs; throws ErrorVB on failure.
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
