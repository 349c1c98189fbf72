#include "store/funciones.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QSqlField>
#include <QSqlQuery>

#include <cmath>
#include <cstdlib>

namespace {

// Code of a character in the Windows ANSI page the family's texts are written in; a
// character outside it reads as "?".
int codigoAnsi(QChar c)
{
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF))
        return u;
    static const char16_t k80a9F[32] = {
        0x20AC, 0, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0, 0x017D, 0,
        0, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0, 0x017E, 0x0178,
    };
    for (int i = 0; i < 32; ++i)
        if (k80a9F[i] != 0 && k80a9F[i] == u)
            return 0x80 + i;
    return '?';
}

// Text of a column by the type of its value.
QString textoColumna(const QVariant& v)
{
    if (!v.isValid() || v.isNull())
        return QString();
    switch (v.typeId()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::UChar:
    case QMetaType::SChar:
    case QMetaType::Char:
        return Trim(Str(v.toLongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
        return Trim(Str(v.toDouble()));
    case QMetaType::QDate:
        return Format(v.toDate(), QStringLiteral("yyyymmdd"));
    case QMetaType::QDateTime:
        return Format(v.toDateTime(), QStringLiteral("yyyymmdd"));
    case QMetaType::QString:
        return Trim(v.toString());
    default:
        return QString();
    }
}

QString ultimosTres(double suma)
{
    // A whole sum well inside a double's exact range (every sum of codes, and of the usual keys)
    // gives its last three digits without the general picture, which costs more than the rest
    // of the code.
    if (std::abs(suma) < 1e15 && suma == std::trunc(suma)) {
        const int resto = static_cast<int>(std::llabs(static_cast<qint64>(suma)) % 1000);
        const QChar digitos[3] = {QChar(u'0' + resto / 100), QChar(u'0' + resto / 10 % 10), QChar(u'0' + resto % 10)};
        return QString(digitos, 3);
    }
    const QString veinte = Format(suma, QStringLiteral("00000000000000000000"));
    return Right(Right(veinte, 15), 3);
}

// A table's name as it may stand in a statement: letters, digits and "_".
bool nombreLlano(const QString& tabla)
{
    static const QRegularExpression kNombre(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return kNombre.match(tabla).hasMatch();
}

// Columns the schema of a table declares as dates. The engine hands them back as text, which
// the code must count as the date it is.
QSet<QString> columnasFecha(const QString& tabla)
{
    static QHash<QString, QSet<QString>> cache;
    if (tabla.isEmpty())
        return {};
    const QString clave = gdbBase().databaseName() + QLatin1Char('|') + tabla.toUpper();
    if (const auto it = cache.constFind(clave); it != cache.cend())
        return *it;
    QSet<QString> fechas;
    if (gdbBase().driverName() == QLatin1String("QSQLITE") && nombreLlano(tabla)) {
        QSqlQuery q = ejecutar(QStringLiteral("PRAGMA table_info(") + tabla + QLatin1Char(')'));
        while (q.next()) {
            const QString tipo = q.value(2).toString().trimmed().toUpper();
            if (tipo == QLatin1String("DATE") || tipo == QLatin1String("DATETIME") || tipo == QLatin1String("TIMESTAMP"))
                fechas.insert(q.value(1).toString().toUpper());
        }
    }
    cache.insert(clave, fechas);
    return fechas;
}

// A date column's stored text as a date: "yyyy-mm-dd" (with or without a time), "dd/mm/yyyy"
// or "yyyymmdd". Anything else stays as it is.
QVariant comoFecha(const QVariant& v)
{
    if (v.isNull() || v.typeId() != QMetaType::QString)
        return v;
    const QString t = v.toString().trimmed();
    for (const char* forma : {"yyyy-MM-dd", "dd/MM/yyyy", "yyyyMMdd"}) {
        const QString patron = QString::fromLatin1(forma);
        const QDate d = QDate::fromString(t.left(patron.size()), patron);
        if (d.isValid() && (t.size() == patron.size() || t.at(patron.size()) == QLatin1Char(' ')
                            || t.at(patron.size()) == QLatin1Char('T')))
            return d;
    }
    return v;
}

QVariantList valoresDeFila(const QSqlRecord& fila, const QString& tabla)
{
    QVariantList valores;
    valores.reserve(fila.count());
    QHash<QString, QSet<QString>> porTabla;
    for (int i = 0; i < fila.count(); ++i) {
        const QSqlField campo = fila.field(i);
        const QString suya = tabla.isEmpty() ? campo.tableName() : tabla;
        if (!porTabla.contains(suya))
            porTabla.insert(suya, columnasFecha(suya));
        const bool fecha = porTabla.value(suya).contains(campo.name().toUpper());
        valores << (fecha ? comoFecha(campo.value()) : campo.value());
    }
    return valores;
}

const QString kCadenaTrabajo = QStringLiteral(" WHERE DOC_ID_D=? AND TIP_DOC_D=6 AND PERIODO=? AND FORMULARIO=?");

}  // namespace

QString CodigoFila(const QVariantList& valores, int claves)
{
    double a = 0;
    const int n = static_cast<int>(valores.size());
    for (int i = 0; i < claves && i < n; ++i) {
        const QString t = textoColumna(valores.at(i));
        if (IsNumeric(t))
            a += CDbl(t);
    }
    double b = 0;
    for (int i = claves; i <= n - 2; ++i) {
        const QString t = textoColumna(valores.at(i));
        for (int j = 1; j <= t.size(); ++j) {
            const int producto = codigoAnsi(t.at(j - 1)) * j;
            if (producto > 32767)
                throw errorDesbordamiento();
            b += producto;
        }
    }
    return ultimosTres(a) + ultimosTres(b);
}

QString CodigoFila(const QSqlRecord& fila, int claves)
{
    return CodigoFila(valoresDeFila(fila, QString()), claves);
}

QString codigoFilaGuardada(const QString& tabla, qint64 rowid, int claves)
{
    // A table's name can't be bound: only a plain name goes into the statement.
    if (!nombreLlano(tabla))
        throw ErrorVB(3078, QStringLiteral("No se encuentra la tabla ") + tabla);
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM ") + tabla + QStringLiteral(" WHERE rowid=?"), {rowid});
    if (!q.next())
        throw ErrorVB(3021, QStringLiteral("No hay registro activo."));
    return CodigoFila(valoresDeFila(q.record(), tabla), claves);
}

void sellarFila(const QString& tabla, qint64 rowid, int claves)
{
    const QString codigo = codigoFilaGuardada(tabla, rowid, claves);
    ejecutar(QStringLiteral("UPDATE ") + tabla + QStringLiteral(" SET cNumero=? WHERE rowid=?"), {codigo, rowid});
}

QString pRegistraSpool(const QString& codRep, int tipoDoc, const QString& docId)
{
    Transaccion t;
    const QVariant secTipo = escalar(QStringLiteral("SELECT max(Secuencia) AS SecTipo FROM SPOOL WHERE CodRep=?"),
                                     {codRep});
    const QVariant secRep = escalar(QStringLiteral("SELECT max(substr(Archivo,1,8)) AS SecRep FROM SPOOL"));
    const qint64 sec = secTipo.isNull() ? 0 : static_cast<qint64>(Val(secTipo.toString()));
    const qint64 rep = secRep.isNull() ? 0 : static_cast<qint64>(Val(secRep.toString()));
    const QString archivo = Format(rep + 1, QStringLiteral("00000000")) + QStringLiteral(".PRN");
    ejecutar(QStringLiteral("INSERT INTO SPOOL (CodRep, Secuencia, Archivo, Fecha, Usuario, Tip_doc_d, doc_id_d)"
                            " VALUES (?, ?, ?, ?, ?, ?, ?)"),
             {codRep, Format(sec + 1, QStringLiteral("000000")), archivo, Ahora(), G().gsUsuario, tipoDoc, docId});
    t.commit();
    return archivo;
}

QString MensajeError(int codigo)
{
    const QVariant desc = escalar(QStringLiteral("SELECT DescError FROM ERROR WHERE CodError=?"),
                                  {Format(codigo, QStringLiteral("0000"))});
    if (codigo == 152)
        return QStringLiteral("La información de la declaración fue grabada con inconsistencias. "
                              "En estas condiciones no podra ser enviada a TAVEN.");
    return desc.isNull() ? QString() : desc.toString();
}

QString TipoUsuario()
{
    QSqlQuery q = ejecutar(QStringLiteral("SELECT Tipo FROM CLAVES WHERE Usuario=?"), {G().gsUsuario});
    if (q.next())
        return q.value(0).toString();
    return QStringLiteral("1");
}

bool ValidaDocumento(const QString& tipo, const QString& numero)
{
    if (Trim(tipo).isEmpty() || Trim(numero).isEmpty())
        return false;
    const QString argumento = QString::number(static_cast<qint64>(Val(tipo)));
    QSqlQuery q = ejecutar(QStringLiteral("SELECT Funcion FROM PARAM WHERE Numero='044' AND Argumento=?"),
                           {argumento});
    if (!q.next())
        return false;
    const QString funcion = q.value(0).toString();
    const int largo = static_cast<int>(Val(Mid(funcion, 46, 2)));
    const int medida = Len(Trim(numero));
    if (Mid(funcion, 130, 1) == QLatin1String("0")) {
        if (medida > largo)
            return false;
    } else if (medida != largo) {
        return false;
    }
    cUtilQVL& util = gobjUtil();
    if (Mid(funcion, 128, 1) != QLatin1String("0"))
        return util.EsTexto(numero, false, false, false);
    return util.EsNumero(numero, false, false);
}

Sentencia sentenciaContribuyentes(const QString& formulario)
{
    // Row of the RUC in the document catalogue, or the family's constant row.
    static const QString kFilaRuc = QStringLiteral(
        "REG. UNICO DE CONTRIBUYENTES   RUC           11 000110 01 000001000001100111011111"
        "                                           0 5 0");
    const QVariant f = escalar(QStringLiteral("SELECT Funcion FROM PARAM WHERE Numero='044' AND Argumento='6'"));
    const QString funcion = f.isValid() ? f.toString() : kFilaRuc;
    const QString largo = Mid(funcion, 46, 2);
    const QString exacto = Mid(funcion, 130, 1);

    Sentencia s;
    s.sql = QStringLiteral(" SELECT * FROM CONT  WHERE Tip_doc_d=6 ");
    if (Val(largo) == 11 && exacto == QLatin1String("1"))
        s.sql += QStringLiteral(" AND length(trim(Doc_id_d))=11 ");
    if (formulario == QLatin1String("0675"))
        s.sql += QStringLiteral(" AND Tipo_Ingreso=2 ");
    if (TipoUsuario() == QLatin1String("0")) {
        s.sql += QStringLiteral(" ORDER BY Tip_doc_d, doc_id_d ");
    } else {
        s.sql += QStringLiteral(" AND Usuario =? Order by Tip_doc_d, doc_id_d ");
        s.valores << G().gsUsuario;
    }
    return s;
}

QString ComboContribuyentes(const QString& formulario)
{
    return sentenciaContribuyentes(formulario).sql;
}

QString DigitoVerificador(const QString& control, const QString& orden)
{
    cUtilQVL& util = gobjUtil();
    const QString d1 = Mid(util.CodigoHash(control), 9, 1);
    const QString d2 = Right(util.CodigoHash(control + orden + d1), 1);
    return d1 + d2;
}

bool FechaNoFutura(const QString& fecha)
{
    const int dia = static_cast<int>(Val(Mid(fecha, 1, 2)));
    const int mes = static_cast<int>(Val(Mid(fecha, 4, 2)));
    const int anho = static_cast<int>(Val(Right(fecha, 4)));
    const QDate hoy = Hoy();
    if (anho != hoy.year())
        return anho < hoy.year();
    if (mes != hoy.month())
        return mes < hoy.month();
    return dia <= hoy.day();
}

QString FechaTexto(const QString& yyyymmdd)
{
    if (Trim(yyyymmdd).isEmpty())
        return yyyymmdd;
    const QString ys = Mid(yyyymmdd, 1, 4), ms = Mid(yyyymmdd, 5, 2), ds = Mid(yyyymmdd, 7, 2);
    if (!IsNumeric(ys) || !IsNumeric(ms) || !IsNumeric(ds))
        throw ErrorVB(kErrTipos, QStringLiteral("No coinciden los tipos"));
    // A date built from its parts: months and days beyond their range roll over.
    int anho = CInt(CDbl(ys));
    if (anho >= 0 && anho < 30)
        anho += 2000;
    else if (anho >= 30 && anho < 100)
        anho += 1900;
    const QDate fecha = QDate(anho, 1, 1).addMonths(CInt(CDbl(ms)) - 1).addDays(CInt(CDbl(ds)) - 1);
    if (!fecha.isValid())
        throw ErrorVB(5, QStringLiteral("Llamada a procedimiento o argumento no válido"));
    return Format(fecha, Mascara::Fecha);
}

QString fSuma(qint16& variable, qint16 incremento)
{
    const int suma = static_cast<int>(variable) + static_cast<int>(incremento);
    if (suma > 32767 || suma < -32768)
        throw errorDesbordamiento();
    variable = static_cast<qint16>(suma);
    return Trim(Str(static_cast<qint64>(variable)));
}

void eliminarDeclaracion(const QString& ruc, const QString& periodo)
{
    const QVariantList clave = {ruc, periodo, G().gsFormulario};
    Transaccion t;
    for (const char* tabla : {"F0931_PTCEA", "ACTA", "DET", "CAB"})
        ejecutar(QStringLiteral("DELETE FROM ") + QLatin1String(tabla) + kCadenaTrabajo, clave);
    t.commit();
}

void eliminarDeclaracionEnviada(const QString& ruc, const QString& periodo, const QString& correl)
{
    const QVariantList clave = {ruc, periodo, G().gsFormulario, correl};
    const QString resto = QStringLiteral(" AND PERIODO=? AND FORMULARIO=? AND CORREL=?");
    Transaccion t;
    ejecutar(QStringLiteral("DELETE FROM HACTA WHERE DOC_ID_D=? AND TIP_DOC_D=6") + resto, clave);
    ejecutar(QStringLiteral("DELETE FROM HDET WHERE DOC_ID_D=? AND TIP_DOC_D<>0") + resto, clave);
    ejecutar(QStringLiteral("DELETE FROM HCAB WHERE DOC_ID_D=? AND TIP_DOC_D=6") + resto, clave);
    ejecutar(QStringLiteral("DELETE FROM HF0931_PTCEA WHERE DOC_ID_D=? AND TIP_DOC_D=6") + resto, clave);
    t.commit();
}
