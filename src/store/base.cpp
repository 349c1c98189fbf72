#include "store/base.h"

#include "basic/errores.h"
#include "shell/globales.h"

#include <QFileInfo>
#include <QHash>
#include <QSqlError>
#include <QUrl>

namespace {

const QString kConexion = QStringLiteral("gdbBase");
const QString kDriver = QStringLiteral("QSQLITE");

// Open transactions of the process' connection: only the outermost one talks to the engine.
int gProfundidad = 0;
// An inner Transaccion left without commit() dooms the outer one.
bool gCondenada = false;

QString textoError(const QSqlError& e)
{
    QString t = e.databaseText().trimmed();
    if (t.isEmpty())
        t = e.text().trimmed();
    return t;
}

QSqlDatabase conexionAbierta()
{
    QSqlDatabase db = gdbBase();
    if (!db.isValid() || !db.isOpen())
        throw ErrorVB(91, QStringLiteral("Variable de objeto o bloque With no establecido"));
    return db;
}

void ejecutarDirecto(QSqlDatabase& db, const QString& sql)
{
    QSqlQuery q(db);
    if (!q.exec(sql))
        throw errorBaseDatos(textoError(q.lastError()));
}

// While a batch runs (empezarLote), statements stay prepared, by their SQL text: a save
// repeats the same few hundred statements, and preparing them again costs more than running
// them. A statement run again ends the result of its previous run.
bool gLote = false;

QHash<QString, QSqlQuery>& preparadas()
{
    static QHash<QString, QSqlQuery> tabla;
    return tabla;
}

// Ends every kept result, so that no statement holds a read snapshot of the file.
void soltarPreparadas()
{
    for (QSqlQuery& q : preparadas())
        q.finish();
}

ErrorVB errorBloqueo(const QString& texto)
{
    return ErrorVB(kErrBaseBloqueada, texto);
}

}  // namespace

void abrirBase(const QString& archivo)
{
    cerrarBase();
    const QFileInfo info(archivo);
    if (!info.exists() || !info.isFile())
        throw errorBloqueo(QStringLiteral("No se encuentra el archivo de base de datos '%1'.").arg(archivo));
    if (!info.isReadable())
        throw errorBloqueo(QStringLiteral("No se puede leer el archivo de base de datos '%1'.").arg(archivo));

    {
        QSqlDatabase db = QSqlDatabase::addDatabase(kDriver, kConexion);
        // A URI with mode=rw opens read-write and never creates the file.
        QUrl uri = QUrl::fromLocalFile(info.absoluteFilePath());
        db.setDatabaseName(uri.toString(QUrl::FullyEncoded) + QStringLiteral("?mode=rw"));
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=5000"));
        bool bien = db.open();
        QString fallo = bien ? QString() : textoError(db.lastError());
        if (bien) {
            QSqlQuery q(db);
            // The first read tells a database from any other file, and waits out a lock.
            bien = q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")) && q.next()
                   && q.exec(QStringLiteral("PRAGMA busy_timeout = 5000"))
                   && q.exec(QStringLiteral("PRAGMA foreign_keys = OFF"));
            if (!bien)
                fallo = textoError(q.lastError());
            else if (q.exec(QStringLiteral("PRAGMA journal_mode = WAL")))
                q.finish();   // a medium without shared memory keeps its journal: not fatal
        }
        if (!bien) {
            db.close();
            db = QSqlDatabase();
            QSqlDatabase::removeDatabase(kConexion);
            throw errorBloqueo(fallo.isEmpty() ? QStringLiteral("Base de datos no accesible") : fallo);
        }
    }
    G().gdbBase = kConexion;
    gProfundidad = 0;
    gCondenada = false;
}

void cerrarBase()
{
    gLote = false;
    preparadas().clear();
    if (QSqlDatabase::contains(kConexion)) {
        {
            QSqlDatabase db = QSqlDatabase::database(kConexion, false);
            if (db.isOpen()) {
                if (gProfundidad > 0)
                    db.rollback();
                db.close();
            }
        }
        QSqlDatabase::removeDatabase(kConexion);
    }
    G().gdbBase.clear();
    gProfundidad = 0;
    gCondenada = false;
}

void empezarLote()
{
    QSqlDatabase db = conexionAbierta();
    ejecutarDirecto(db, QStringLiteral("PRAGMA synchronous = NORMAL"));
    gLote = true;
}

void terminarLote()
{
    QSqlDatabase db = conexionAbierta();
    gLote = false;
    preparadas().clear();
    ejecutarDirecto(db, QStringLiteral("PRAGMA wal_checkpoint(FULL)"));
    ejecutarDirecto(db, QStringLiteral("PRAGMA synchronous = FULL"));
}

QSqlDatabase gdbBase()
{
    if (G().gdbBase.isEmpty())
        return QSqlDatabase();
    return QSqlDatabase::database(G().gdbBase, false);
}

QSqlQuery ejecutar(const QString& sql, const QVariantList& valores)
{
    QSqlDatabase db = conexionAbierta();
    const auto guardada = gLote ? preparadas().constFind(sql) : preparadas().constEnd();
    // A kept statement is handed out as a copy, which shares it (what Qt deprecates copies for).
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QSqlQuery q = guardada != preparadas().constEnd() ? *guardada : QSqlQuery(db);
    if (guardada == preparadas().constEnd()) {
        if (gLote)
            q.setForwardOnly(true);   // read once, row after row: no copy of the rows kept
        if (!q.prepare(sql))
            throw errorBaseDatos(textoError(q.lastError()));
        if (gLote)
            preparadas().insert(sql, q);
    }
    QT_WARNING_POP
    for (int i = 0; i < valores.size(); ++i)
        q.bindValue(i, valores[i]);
    if (!q.exec())
        throw errorBaseDatos(textoError(q.lastError()));
    return q;
}

QVariant escalar(const QString& sql, const QVariantList& valores)
{
    QSqlQuery q = ejecutar(sql, valores);
    if (q.next())
        return q.value(0);
    return QVariant();
}

Transaccion::Transaccion()
{
    QSqlDatabase db = conexionAbierta();
    if (gProfundidad == 0) {
        soltarPreparadas();
        // IMMEDIATE takes the write lock at once, so reading a counter and writing its
        // successor can't interleave with another process doing the same.
        ejecutarDirecto(db, QStringLiteral("BEGIN IMMEDIATE"));
        activa_ = true;
        gCondenada = false;
    }
    ++gProfundidad;
    contada_ = true;
}

Transaccion::~Transaccion()
{
    if (contada_ && gProfundidad > 0)
        --gProfundidad;
    if (activa_) {
        QSqlDatabase db = gdbBase();
        if (db.isOpen()) {
            QSqlQuery q(db);
            q.exec(QStringLiteral("ROLLBACK"));
        }
        gCondenada = false;
    } else if (contada_ && !confirmada_) {
        gCondenada = true;
    }
}

void Transaccion::commit()
{
    if (confirmada_ || !contada_)
        return;
    confirmada_ = true;
    if (!activa_)
        return;   // the outer transaction decides
    QSqlDatabase db = conexionAbierta();
    activa_ = false;
    contada_ = false;
    --gProfundidad;
    if (gCondenada) {
        gCondenada = false;
        ejecutarDirecto(db, QStringLiteral("ROLLBACK"));
        throw errorBaseDatos(QStringLiteral("La operación fue anulada y no se grabó ningún cambio."));
    }
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("COMMIT"))) {
        const QString texto = textoError(q.lastError());
        QSqlQuery r(db);
        r.exec(QStringLiteral("ROLLBACK"));
        throw errorBaseDatos(texto);
    }
    if (gLote)
        soltarPreparadas();   // nothing read inside the transaction keeps its snapshot after it
}
