#include "store/crear.h"

#include "basic/errores.h"
#include "store/archivo_nuevo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>

namespace {

const QString kEsquema = QStringLiteral(":/data/esquema.sql");
const QString kParam = QStringLiteral(":/data/param.csv");
const QString kError = QStringLiteral(":/data/error.csv");

enum : int {
    kErrArchivoExiste = 58,
    kErrAccesoRuta = 75,
    kErrRutaNoEncontrada = 76,
};

QString leerRecurso(const QString& nombre)
{
    QFile f(nombre);
    if (!f.open(QIODevice::ReadOnly))
        throw ErrorVB(kErrArchivoNoEncontrado,
                      QStringLiteral("No se encuentra el recurso '%1' del módulo.").arg(nombre));
    return QString::fromUtf8(f.readAll());
}

QString textoError(const QSqlError& e)
{
    const QString t = e.databaseText().trimmed();
    return t.isEmpty() ? e.text().trimmed() : t;
}

void correr(QSqlQuery& q)
{
    if (!q.exec())
        throw errorBaseDatos(textoError(q.lastError()));
}

// Inserts every data row of a CSV text (header first) into `tabla`, columns as in the header.
void cargarCsv(QSqlDatabase& db, const QString& tabla, const QString& texto)
{
    QList<QStringList> filas = filasCsv(texto);
    if (filas.isEmpty())
        return;
    const QStringList cabecera = filas.takeFirst();
    QStringList marcas;
    for (int i = 0; i < cabecera.size(); ++i)
        marcas << QStringLiteral("?");
    QSqlQuery q(db);
    // Table and column names come from the module's own files, never from a user.
    if (!q.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                       .arg(tabla, cabecera.join(QLatin1Char(',')), marcas.join(QLatin1Char(',')))))
        throw errorBaseDatos(textoError(q.lastError()));
    for (const QStringList& fila : filas) {
        if (fila.size() != cabecera.size())
            throw errorBaseDatos(QStringLiteral("Fila mal formada en el catálogo de %1: %2")
                                     .arg(tabla, fila.join(QLatin1Char(','))));
        for (int i = 0; i < fila.size(); ++i)
            q.bindValue(i, fila.at(i));
        correr(q);
    }
}

int gCreaciones = 0;

}  // namespace

QStringList sentenciasSql(const QString& guion)
{
    QStringList salida;
    QString actual;
    QChar comilla;
    for (int i = 0; i < guion.size(); ++i) {
        const QChar c = guion.at(i);
        if (!comilla.isNull()) {
            actual += c;
            if (c == comilla)
                comilla = QChar();
            continue;
        }
        if (c == QLatin1Char('-') && i + 1 < guion.size() && guion.at(i + 1) == QLatin1Char('-')) {
            while (i < guion.size() && guion.at(i) != QLatin1Char('\n'))
                ++i;
            actual += QLatin1Char('\n');
            continue;
        }
        if (c == QLatin1Char('\'') || c == QLatin1Char('"'))
            comilla = c;
        if (c == QLatin1Char(';')) {
            if (!actual.trimmed().isEmpty())
                salida << actual.trimmed();
            actual.clear();
            continue;
        }
        actual += c;
    }
    if (!actual.trimmed().isEmpty())
        salida << actual.trimmed();
    return salida;
}

QList<QStringList> filasCsv(const QString& texto)
{
    QList<QStringList> filas;
    QStringList fila;
    QString campo;
    bool enComillas = false;
    bool inicioLinea = true;
    bool hayDatos = false;
    const int n = texto.size();
    for (int i = 0; i < n; ++i) {
        const QChar c = texto.at(i);
        if (enComillas) {
            if (c == QLatin1Char('"')) {
                if (i + 1 < n && texto.at(i + 1) == QLatin1Char('"')) {
                    campo += c;
                    ++i;
                } else {
                    enComillas = false;
                }
            } else {
                campo += c;
            }
            continue;
        }
        if (inicioLinea && c == QLatin1Char('#')) {
            while (i < n && texto.at(i) != QLatin1Char('\n'))
                ++i;
            continue;
        }
        inicioLinea = false;
        if (c == QLatin1Char('"')) {
            enComillas = true;
            hayDatos = true;
        } else if (c == QLatin1Char(',')) {
            fila << campo;
            campo.clear();
            hayDatos = true;
        } else if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            if (c == QLatin1Char('\r') && i + 1 < n && texto.at(i + 1) == QLatin1Char('\n'))
                ++i;
            if (hayDatos || !campo.isEmpty()) {
                fila << campo;
                filas << fila;
            }
            fila.clear();
            campo.clear();
            hayDatos = false;
            inicioLinea = true;
        } else {
            campo += c;
            hayDatos = true;
        }
    }
    if (hayDatos || !campo.isEmpty()) {
        fila << campo;
        filas << fila;
    }
    return filas;
}

const QList<Demo::Contribuyente>& Demo::contribuyentes()
{
    static const QList<Contribuyente> lista = {
        {6, QStringLiteral("20100001234"), QStringLiteral("COMERCIAL ANDINA DEMO S.A.C."), kUsuarioContador},
        {6, QStringLiteral("20500004569"), QStringLiteral("INDUSTRIAS DEL PACIFICO DEMO S.A."), kUsuarioContador},
        {6, QStringLiteral("10400001117"), QStringLiteral("QUISPE MAMANI ROSA DEMO"), kUsuarioContador},
        {6, QStringLiteral("20600007891"), QStringLiteral("AGROEXPORTADORA DEL NORTE DEMO S.A.A."), kUsuarioAdmin},
        {6, QStringLiteral("20470002221"), QStringLiteral("SERVICIOS AMAZONICOS DEMO E.I.R.L."), kUsuarioAdmin},
        {1, QStringLiteral("40000111"), QStringLiteral("TORRES VEGA LUIS DEMO"), kUsuarioContador},
    };
    return lista;
}

void cargarEsquemaYCatalogo(QSqlDatabase& db)
{
    for (const QString& sentencia : sentenciasSql(leerRecurso(kEsquema))) {
        QSqlQuery q(db);
        if (!q.exec(sentencia))
            throw errorBaseDatos(textoError(q.lastError()));
    }
    cargarCsv(db, QStringLiteral("PARAM"), leerRecurso(kParam));
    cargarCsv(db, QStringLiteral("ERROR"), leerRecurso(kError));
}

void cargarDemo(QSqlDatabase& db)
{
    QSqlQuery claves(db);
    claves.prepare(QStringLiteral("INSERT INTO CLAVES (Usuario, Tipo) VALUES (?, ?)"));
    for (const auto& [usuario, tipo] : {std::pair{Demo::kUsuarioAdmin, QStringLiteral("0")},
                                        std::pair{Demo::kUsuarioContador, QStringLiteral("1")}}) {
        claves.bindValue(0, usuario);
        claves.bindValue(1, tipo);
        correr(claves);
    }
    QSqlQuery cont(db);
    cont.prepare(QStringLiteral("INSERT INTO CONT (TIP_DOC_D, DOC_ID_D, TIPO_CONT, NOMBRE, USUARIO, Tipo_Ingreso)"
                                " VALUES (?, ?, ?, ?, ?, ?)"));
    for (const Demo::Contribuyente& c : Demo::contribuyentes()) {
        cont.bindValue(0, static_cast<int>(c.tipoDoc));
        cont.bindValue(1, c.documento);
        // Persons (RUC 10..., DNI) are "N", companies "J".
        const bool persona = c.tipoDoc != 6 || c.documento.startsWith(QLatin1String("10"));
        cont.bindValue(2, persona ? QStringLiteral("N") : QStringLiteral("J"));
        cont.bindValue(3, c.nombre);
        cont.bindValue(4, c.usuario);
        cont.bindValue(5, 1);
        correr(cont);
    }
}

void crearBaseDatos(const QString& archivo, bool conDemo)
{
    const QFileInfo info(archivo);
    if (archivo.trimmed().isEmpty())
        throw ErrorVB(kErrRutaNoEncontrada, QStringLiteral("Falta el nombre del archivo de base de datos."));
    if (info.exists())
        throw ErrorVB(kErrArchivoExiste,
                      QStringLiteral("El archivo '%1' ya existe; no se sobrescribe.").arg(archivo));
    const QString carpeta = info.absolutePath();
    if (!QFileInfo(carpeta).isDir())
        throw ErrorVB(kErrRutaNoEncontrada, QStringLiteral("No existe la carpeta '%1'.").arg(carpeta));

    // The database is built in memory and written out whole: the folder never sees a part of it.
    const QString conexion = QStringLiteral("crear_base_%1").arg(++gCreaciones);
    QByteArray imagen;
    try {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), conexion);
        db.setDatabaseName(QStringLiteral(":memory:"));
        if (!db.open())
            throw ErrorVB(kErrAccesoRuta, QStringLiteral("No se puede crear la base de datos '%1': %2")
                                              .arg(archivo, textoError(db.lastError())));
        if (!db.transaction())
            throw errorBaseDatos(textoError(db.lastError()));
        try {
            cargarEsquemaYCatalogo(db);
            if (conDemo)
                cargarDemo(db);
        } catch (...) {
            db.rollback();
            throw;
        }
        if (!db.commit())
            throw errorBaseDatos(textoError(db.lastError()));
        imagen = imagenEnMemoria(db);
        db.close();
    } catch (...) {
        QSqlDatabase::removeDatabase(conexion);
        throw;
    }
    QSqlDatabase::removeDatabase(conexion);
    publicarArchivo(imagen, archivo);
}
