#include "store/base.h"

#include "basic/errores.h"
#include "shell/globales.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSqlDriver>
#include <QSqlError>
#include <QUrl>

#include <sqlite3.h>

namespace {

const QString kConexion = QStringLiteral("gdbBase");
const QString kSonda = QStringLiteral("gdbBase_sonda");
const QString kDriver = QStringLiteral("QSQLITE");

// Open transactions of the process' connection: only the outermost one talks to the engine.
int gProfundidad = 0;
// An inner Transaccion left without commit() dooms the outer one.
bool gCondenada = false;
// The file of the open connection, for the messages, and the last unavailability found on it.
QString gArchivo;
QString gNoDisponible;

// Statements that change rows, kept prepared on the connection once they have run: a save runs
// the same INSERT once per value, and preparing it each time cost more than running it. They
// give no rows, so a caller that keeps the returned query has no result that a later run of
// the same text could overwrite; and the driver resets each one as soon as it has run, so a
// kept one holds no lock. Statements that read are prepared anew each time, as before: a kept one the caller
// left half read would hold the connection's read snapshot open.
struct Preparada {
    QSqlQuery consulta;
    qsizetype valores = 0;   // how many values it ran with: the same text always takes as many
};
// Never destroyed: a query must not outlive its driver, and at exit the order in which statics
// go is not ours. cerrarBase empties it.
QHash<QString, Preparada>& gPreparadas = *new QHash<QString, Preparada>;
constexpr qsizetype kMaxPreparadas = 64;

// INSERT, UPDATE or DELETE without RETURNING.
bool esCambio(const QString& sql)
{
    const QStringView t = QStringView(sql).trimmed();
    auto empieza = [&](QLatin1StringView palabra) {
        return t.size() > palabra.size() && t.startsWith(palabra, Qt::CaseInsensitive) && t.at(palabra.size()).isSpace();
    };
    return (empieza(QLatin1StringView("INSERT")) || empieza(QLatin1StringView("UPDATE"))
            || empieza(QLatin1StringView("DELETE")))
        && !t.contains(QLatin1StringView("RETURNING"), Qt::CaseInsensitive);
}

// Primary result codes of the engine that mean "the database can't be reached now".
enum : int {
    kSqliteBusy = 5,
    kSqliteLocked = 6,
    kSqliteReadOnly = 8,
    kSqliteCantOpen = 14,
    kSqliteNotADb = 26,
};

QString textoError(const QSqlError& e)
{
    QString t = e.databaseText().trimmed();
    if (t.isEmpty())
        t = e.text().trimmed();
    return t;
}

int codigoMotor(const QSqlError& e)
{
    bool ok = false;
    const int codigo = e.nativeErrorCode().toInt(&ok);
    return ok ? (codigo & 0xff) : -1;
}

QString nativa(const QString& archivo)
{
    return QDir::toNativeSeparators(archivo);
}

QString textoBloqueada(const QString& archivo)
{
    return QStringLiteral("La base de datos %1 está bloqueada por otro programa (se esperó %2 segundos). "
                          "Cierre el programa que la usa o vuelva a intentarlo en unos momentos.")
        .arg(nativa(archivo))
        .arg(kEsperaBloqueoMs / 1000);
}

QString textoSoloLectura(const QString& archivo)
{
    return QStringLiteral("La base de datos %1 es de solo lectura. Pida permiso de escritura sobre el archivo "
                          "y su carpeta, o trabaje con una copia que pueda modificar.")
        .arg(nativa(archivo));
}

QString textoNoEsBase(const QString& archivo)
{
    return QStringLiteral("El archivo %1 no es una base de datos del Programa Qualvia. No se modificó el archivo; "
                          "indique la base de datos de la familia.")
        .arg(nativa(archivo));
}

ErrorVB noDisponible(const QString& texto)
{
    gNoDisponible = texto;
    return ErrorVB(kErrBaseBloqueada, texto);
}

// The error of a failed statement: the database that can't be reached is 3051 with a Spanish
// text, anything else the engine's text.
ErrorVB errorDe(const QSqlError& e)
{
    switch (codigoMotor(e)) {
    case kSqliteBusy:
    case kSqliteLocked:
        return noDisponible(textoBloqueada(gArchivo));
    case kSqliteReadOnly:
        return noDisponible(textoSoloLectura(gArchivo));
    case kSqliteCantOpen:
    case kSqliteNotADb:
        return noDisponible(QStringLiteral("No se puede leer la base de datos %1. Verifique que el archivo siga en su "
                                           "carpeta y que sea la base de datos de la familia.")
                                .arg(nativa(gArchivo)));
    default:
        return errorBaseDatos(textoError(e));
    }
}

// True when the engine opened the file read-only (the process may not write it).
bool soloLectura(const QSqlDatabase& db)
{
    const QVariant manija = db.driver()->handle();
    if (!manija.isValid() || qstrcmp(manija.typeName(), "sqlite3*") != 0)
        return false;
    sqlite3* motor = *static_cast<sqlite3* const*>(manija.constData());
    return motor && sqlite3_db_readonly(motor, "main") == 1;
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
        throw errorDe(q.lastError());
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

QString uriDe(const QFileInfo& info, const char* modo)
{
    // A URI with a mode never creates the file.
    return QUrl::fromLocalFile(info.absoluteFilePath()).toString(QUrl::FullyEncoded) + QStringLiteral("?mode=")
           + QLatin1String(modo);
}

void soltar(const QString& conexion)
{
    {
        QSqlDatabase db = QSqlDatabase::database(conexion, false);
        if (db.isOpen())
            db.close();
    }
    QSqlDatabase::removeDatabase(conexion);
}

// The read-only look that comes before anything is written: the file must be a database with
// the module's tables. Throws the unavailability found.
void sondear(const QFileInfo& info, const QString& archivo)
{
    // The file's own first bytes tell a database from anything else without the engine, which
    // would take an empty file for an empty database.
    QByteArray cabecera;
    {
        QFile f(info.absoluteFilePath());
        if (f.open(QIODevice::ReadOnly))
            cabecera = f.read(100);
    }
    if (cabecera.size() < 100 || !cabecera.startsWith(QByteArrayLiteral("SQLite format 3\0")))
        throw noDisponible(textoNoEsBase(archivo));
    // A database in WAL mode that no one has open (no -wal beside it) is read as it lies: even
    // read-only, the engine would leave its -wal and -shm files beside another program's file.
    const bool enReposo = cabecera.at(18) == 2 && !QFileInfo::exists(info.absoluteFilePath() + QStringLiteral("-wal"));

    QString fallo;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(kDriver, kSonda);
        db.setDatabaseName(uriDe(info, enReposo ? "ro&immutable=1" : "ro"));
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=%1")
                                 .arg(kEsperaBloqueoMs));
        if (!db.open()) {
            fallo = codigoMotor(db.lastError()) == kSqliteBusy ? textoBloqueada(archivo) : textoNoEsBase(archivo);
        } else {
            QSqlQuery q(db);
            if (!q.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type='table'"))) {
                const int codigo = codigoMotor(q.lastError());
                fallo = codigo == kSqliteBusy || codigo == kSqliteLocked ? textoBloqueada(archivo) : textoNoEsBase(archivo);
            } else {
                QStringList tablas;
                while (q.next())
                    tablas << q.value(0).toString().toUpper();
                for (const QString& t : tablasDelModulo())
                    if (!tablas.contains(t))
                        fallo = textoNoEsBase(archivo);
            }
        }
    }
    soltar(kSonda);
    if (!fallo.isEmpty())
        throw noDisponible(fallo);
}

}  // namespace

const QStringList& tablasDelModulo()
{
    static const QStringList tablas = {
        QStringLiteral("CAB"),   QStringLiteral("DET"),   QStringLiteral("ACTA"),   QStringLiteral("F0931_PTCEA"),
        QStringLiteral("HCAB"),  QStringLiteral("HDET"),  QStringLiteral("HACTA"),  QStringLiteral("HF0931_PTCEA"),
        QStringLiteral("CONT"),  QStringLiteral("CLAVES"), QStringLiteral("PARAM"), QStringLiteral("ERROR"),
        QStringLiteral("SPOOL")};
    return tablas;
}

QString baseNoDisponible()
{
    return gNoDisponible;
}

void olvidarNoDisponible()
{
    gNoDisponible.clear();
}

void abrirBase(const QString& archivo)
{
    cerrarBase();
    gNoDisponible.clear();
    const QFileInfo info(archivo);
    if (!info.exists() || !info.isFile())
        throw noDisponible(QStringLiteral("No se encuentra la base de datos %1. Verifique la carpeta y el nombre del "
                                          "archivo.")
                               .arg(nativa(archivo)));
    if (!info.isReadable())
        throw noDisponible(QStringLiteral("No se puede leer la base de datos %1. Pida permiso de lectura y escritura "
                                          "sobre el archivo.")
                               .arg(nativa(archivo)));
    sondear(info, archivo);

    QString fallo;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(kDriver, kConexion);
        db.setDatabaseName(uriDe(info, "rw"));
        db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=%1").arg(kEsperaBloqueoMs));
        if (!db.open()) {
            fallo = codigoMotor(db.lastError()) == kSqliteBusy ? textoBloqueada(archivo) : textoNoEsBase(archivo);
        } else {
            // A file the process may not write opens read-only without a word: it is asked.
            QSqlQuery q(db);
            if (soloLectura(db)) {
                fallo = textoSoloLectura(archivo);
            } else if (!q.exec(QStringLiteral("PRAGMA busy_timeout = %1").arg(kEsperaBloqueoMs))
                       || !q.exec(QStringLiteral("PRAGMA foreign_keys = OFF"))) {
                gArchivo = archivo;
                fallo = errorDe(q.lastError()).descripcion;
            } else if (q.exec(QStringLiteral("PRAGMA journal_mode = WAL"))) {
                q.finish();   // a medium without shared memory keeps its journal: not fatal
            }
        }
    }
    if (!fallo.isEmpty()) {
        soltar(kConexion);
        throw noDisponible(fallo);
    }
    gArchivo = archivo;
    G().gdbBase = kConexion;
    gProfundidad = 0;
    gCondenada = false;
}

void cerrarBase()
{
    gLote = false;
    preparadas().clear();
    gPreparadas.clear();   // before the connection goes: the statements are its own
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
    if (gLote) {
        // In a batch every statement stays prepared, reads included.
        const auto guardada = preparadas().constFind(sql);
        // A kept statement is handed out as a copy, which shares it (what Qt deprecates copies for).
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QSqlQuery q = guardada != preparadas().constEnd() ? *guardada : QSqlQuery(db);
        if (guardada == preparadas().constEnd()) {
            q.setForwardOnly(true);   // read once, row after row: no copy of the rows kept
            if (!q.prepare(sql))
                throw errorDe(q.lastError());
            preparadas().insert(sql, q);
        }
        QT_WARNING_POP
        for (int i = 0; i < valores.size(); ++i)
            q.bindValue(i, valores[i]);
        if (!q.exec())
            throw errorDe(q.lastError());
        return q;
    }
    const bool cambio = esCambio(sql);
    if (cambio) {
        const auto it = gPreparadas.constFind(sql);
        if (it != gPreparadas.cend() && it->valores == valores.size()) {
            QSqlQuery q = it->consulta;
            for (qsizetype i = 0; i < valores.size(); ++i)
                q.bindValue(static_cast<int>(i), valores.at(i));
            if (!q.exec()) {
                const ErrorVB error = errorDe(q.lastError());
                gPreparadas.remove(sql);
                throw error;
            }
            return q;
        }
    }
    QSqlQuery q(db);
    if (!q.prepare(sql))
        throw errorDe(q.lastError());
    for (const QVariant& v : valores)
        q.addBindValue(v);
    if (!q.exec())
        throw errorDe(q.lastError());
    if (cambio) {
        if (gPreparadas.size() >= kMaxPreparadas)
            gPreparadas.clear();
        gPreparadas.insert(sql, Preparada{q, valores.size()});
    }
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
        const ErrorVB error = errorDe(q.lastError());
        QSqlQuery r(db);
        r.exec(QStringLiteral("ROLLBACK"));
        throw error;
    }
    if (gLote)
        soltarPreparadas();   // nothing read inside the transaction keeps its snapshot after it
}
