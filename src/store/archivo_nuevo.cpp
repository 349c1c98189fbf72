#include "store/archivo_nuevo.h"

#include "basic/errores.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QVariant>

#include <sqlite3.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum : int {
    kErrArchivoExiste = 58,
    kErrAccesoRuta = 75,
    kErrRutaNoEncontrada = 76,
};

QString nativa(const QString& ruta)
{
    return QDir::toNativeSeparators(ruta);
}

ErrorVB yaExiste(const QString& destino)
{
    return ErrorVB(kErrArchivoExiste, QStringLiteral("El archivo '%1' ya existe; no se sobrescribe.").arg(nativa(destino)));
}

ErrorVB sinAcceso(const QString& carpeta, int error)
{
    if (error == ENOENT || error == ENOTDIR)
        return ErrorVB(kErrRutaNoEncontrada, QStringLiteral("No existe la carpeta '%1'.").arg(nativa(carpeta)));
    if (error == ENOSPC || error == EDQUOT)
        return ErrorVB(kErrAccesoRuta, QStringLiteral("No queda espacio en el disco de la carpeta '%1'; libere espacio y "
                                                      "vuelva a intentarlo.")
                                           .arg(nativa(carpeta)));
    return ErrorVB(kErrAccesoRuta, QStringLiteral("No se puede escribir en la carpeta '%1'.").arg(nativa(carpeta)));
}

// Every byte, or the error number of the failure.
int escribirTodo(int fd, const QByteArray& contenido)
{
    const char* p = contenido.constData();
    qint64 resto = contenido.size();
    while (resto > 0) {
        const ssize_t n = ::write(fd, p, static_cast<size_t>(resto));
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return errno;
        }
        p += n;
        resto -= n;
    }
    return ::fsync(fd) == 0 ? 0 : errno;
}

void sincronizarCarpeta(const QByteArray& carpeta)
{
    const int fd = ::open(carpeta.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

// The hidden temporary of the fallback, removed by the signals that end a run.
char gProvisional[4096] = {};
struct sigaction gAnteriores[3];
const int kSenales[3] = {SIGINT, SIGTERM, SIGHUP};

void alRecibirSenal(int senal)
{
    if (gProvisional[0])
        ::unlink(gProvisional);
    // The signal's own action ends the process as it would have without us.
    std::signal(senal, SIG_DFL);
    ::raise(senal);
}

class Provisional {
public:
    explicit Provisional(const QByteArray& plantilla)
    {
        if (static_cast<size_t>(plantilla.size()) >= sizeof gProvisional)
            return;
        std::memcpy(gProvisional, plantilla.constData(), static_cast<size_t>(plantilla.size()) + 1);
        struct sigaction accion = {};
        accion.sa_handler = alRecibirSenal;
        sigemptyset(&accion.sa_mask);
        for (int i = 0; i < 3; ++i)
            sigaction(kSenales[i], &accion, &gAnteriores[i]);
        fd = ::mkstemp(gProvisional);
        if (fd < 0)
            gProvisional[0] = '\0';
    }
    ~Provisional()
    {
        if (fd >= 0)
            ::close(fd);
        if (gProvisional[0])
            ::unlink(gProvisional);
        gProvisional[0] = '\0';
        for (int i = 0; i < 3; ++i)
            sigaction(kSenales[i], &gAnteriores[i], nullptr);
    }
    Provisional(const Provisional&) = delete;
    Provisional& operator=(const Provisional&) = delete;
    const char* ruta() const { return gProvisional; }
    int fd = -1;
};

sqlite3* motorDe(const QSqlDatabase& db)
{
    const QVariant manija = db.driver() ? db.driver()->handle() : QVariant();
    if (!manija.isValid() || qstrcmp(manija.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(manija.constData());
}

QByteArray serializar(sqlite3* motor)
{
    sqlite3_int64 largo = 0;
    unsigned char* bytes = sqlite3_serialize(motor, "main", &largo, 0);
    if (!bytes)
        throw errorBaseDatos(QStringLiteral("No hay memoria suficiente para copiar la base de datos."));
    QByteArray imagen(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(largo));
    sqlite3_free(bytes);
    return imagen;
}

}  // namespace

void publicarArchivo(const QByteArray& contenido, const QString& destino)
{
    const QFileInfo info(destino);
    const QString carpeta = info.absolutePath();
    if (info.exists() || info.isSymLink())
        throw yaExiste(destino);
    if (!QFileInfo(carpeta).isDir())
        throw sinAcceso(carpeta, ENOENT);
    const QByteArray carpetaC = QFile::encodeName(carpeta);
    const QByteArray destinoC = QFile::encodeName(info.absoluteFilePath());

    // Read and write for the owner and the group, read for the rest: the family's programs share
    // the file whatever the creator's umask.
    const mode_t permisos = 0664;
    int fd = ::open(carpetaC.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, permisos);
    if (fd >= 0) {
        ::fchmod(fd, permisos);
        int error = escribirTodo(fd, contenido);
        if (error == 0) {
            char enlace[64];
            std::snprintf(enlace, sizeof enlace, "/proc/self/fd/%d", fd);
            // The anonymous file takes its name; an existing name is never replaced.
            if (::linkat(AT_FDCWD, enlace, AT_FDCWD, destinoC.constData(), AT_SYMLINK_FOLLOW) != 0)
                error = errno;
        }
        ::close(fd);
        if (error == EEXIST)
            throw yaExiste(destino);
        if (error == 0) {
            sincronizarCarpeta(carpetaC);
            return;
        }
        // The anonymous file could be written but not named (no /proc): the fallback below.
        if (error == ENOSPC || error == EDQUOT || error == EIO)
            throw sinAcceso(carpeta, error);
    } else if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL) {
        throw sinAcceso(carpeta, errno);
    }

    // No anonymous file here, or none that can take a name: a hidden name in the same folder,
    // removed on failure and on the signals that end a run.
    Provisional temporal(carpetaC + "/." + QFile::encodeName(info.fileName()) + ".XXXXXX");
    if (temporal.fd < 0)
        throw sinAcceso(carpeta, errno);
    ::fchmod(temporal.fd, permisos);
    int error = escribirTodo(temporal.fd, contenido);
    if (error == 0 && ::link(temporal.ruta(), destinoC.constData()) != 0)
        error = errno;
    if (error == EEXIST)
        throw yaExiste(destino);
    if (error != 0)
        throw sinAcceso(carpeta, error);
    sincronizarCarpeta(carpetaC);
}

QByteArray imagenConsistente(const QSqlDatabase& db)
{
    sqlite3* origen = motorDe(db);
    if (!origen)
        throw errorBaseDatos(QStringLiteral("La conexión no es de una base de datos SQLite."));
    sqlite3* memoria = nullptr;
    if (sqlite3_open(":memory:", &memoria) != SQLITE_OK) {
        sqlite3_close(memoria);
        throw errorBaseDatos(QStringLiteral("No hay memoria suficiente para copiar la base de datos."));
    }
    // One step over every page: the source stays read-locked for the whole copy, so the copy is
    // one moment of the database even while others write to it.
    sqlite3_backup* copia = sqlite3_backup_init(memoria, "main", origen, "main");
    int resultado = SQLITE_ERROR;
    if (copia) {
        resultado = sqlite3_backup_step(copia, -1);
        sqlite3_backup_finish(copia);
    }
    QString fallo;
    if (resultado != SQLITE_DONE)
        fallo = QString::fromUtf8(sqlite3_errstr(resultado));
    QByteArray imagen;
    if (fallo.isEmpty()) {
        try {
            imagen = serializar(memoria);
        } catch (...) {
            sqlite3_close(memoria);
            throw;
        }
    }
    sqlite3_close(memoria);
    if (!fallo.isEmpty()) {
        const int primario = resultado & 0xff;
        if (primario == SQLITE_BUSY || primario == SQLITE_LOCKED)
            throw ErrorVB(kErrBaseBloqueada,
                          QStringLiteral("La base de datos está bloqueada por otro programa; vuelva a intentarlo en unos momentos."));
        throw errorBaseDatos(fallo);
    }
    return imagen;
}

QByteArray imagenEnMemoria(const QSqlDatabase& db)
{
    sqlite3* motor = motorDe(db);
    if (!motor)
        throw errorBaseDatos(QStringLiteral("La conexión no es de una base de datos SQLite."));
    return serializar(motor);
}
