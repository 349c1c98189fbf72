// The connection, transactions and the creation of a new database. A database missing or not
// the family's is f931's test (exit 3, the file left as it was) and the start's (its message).
#include "comun/base_prueba.h"
#include "store/motor_directo.h"

#include "basic/errores.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/crear.h"

#include <QDir>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>

namespace {

int errorDe(const std::function<void()>& f)
{
    try {
        f();
    } catch (const ErrorVB& e) {
        return e.numero;
    }
    return 0;
}

// ---- opening --------------------------------------------------------------------------------

TEST(AbrirBase, ConexionCompartidaConSusAjustes)
{
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("base con espacio.db"));
    crearBaseDatos(archivo, false);
    abrirBase(archivo);
    EXPECT_EQ(G().gdbBase, gdbBase().connectionName());
    EXPECT_EQ(escalar(QStringLiteral("PRAGMA journal_mode")).toString(), QStringLiteral("wal"));
    EXPECT_EQ(escalar(QStringLiteral("PRAGMA busy_timeout")).toInt(), 5000);
    EXPECT_EQ(escalar(QStringLiteral("PRAGMA foreign_keys")).toInt(), 0);
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM CONT")).toInt(), 0);   // no demo asked
    cerrarBase();
    EXPECT_TRUE(G().gdbBase.isEmpty());
    EXPECT_FALSE(gdbBase().isValid());
    EXPECT_EQ(errorDe([&] { ejecutar(QStringLiteral("SELECT 1")); }), 91);   // nothing open
}

// ---- transactions ---------------------------------------------------------------------------

class Transacciones : public PruebaConBase {
protected:
    static void agregar(const char* usuario)
    {
        ejecutar(QStringLiteral("INSERT INTO CLAVES (Usuario, Tipo) VALUES (?, '1')"), {QString::fromLatin1(usuario)});
    }
    static int usuarios() { return escalar(QStringLiteral("SELECT count(*) FROM CLAVES")).toInt(); }
};

// Nothing of the module nests transactions: only the one level is tested.
TEST_F(Transacciones, UnFalloAMitadDeshaceLoAnterior)
{
    const int antes = usuarios();
    EXPECT_THROW(
        {
            Transaccion t;
            agregar("U1");
            agregar("U1");   // the unique key refuses the second
            t.commit();
        },
        ErrorVB);
    EXPECT_EQ(usuarios(), antes);
}

// The same text that changes rows runs once per value of a save: every run writes its own values,
// one the key refuses leaves the next working, a wrong number of values is refused, and nothing
// held afterwards keeps another program waiting or hides its rows from this connection.
TEST_F(Transacciones, ElMismoCambioRepetidoEscribeSusValores)
{
    const QString alta = QStringLiteral("INSERT INTO CLAVES (Usuario, Tipo) VALUES (?, ?)");
    const int antes = usuarios();
    ejecutar(alta, {QStringLiteral("U1"), QStringLiteral("1")});
    EXPECT_EQ(errorDe([&] { ejecutar(alta, {QStringLiteral("U1"), QStringLiteral("1")}); }), 3146);
    const QSqlQuery guardada = ejecutar(alta, {QStringLiteral("U2"), QStringLiteral("0")});
    EXPECT_EQ(errorDe([&] { ejecutar(alta, {QStringLiteral("U3")}); }), 3146);
    ejecutar(alta, {QStringLiteral("U4"), QStringLiteral("1")});
    QSqlQuery q = ejecutar(QStringLiteral("SELECT Usuario || Tipo FROM CLAVES WHERE Usuario LIKE 'U_' ORDER BY 1"));
    QStringList filas;
    while (q.next())
        filas << q.value(0).toString();
    EXPECT_EQ(filas, (QStringList{QStringLiteral("U11"), QStringLiteral("U20"), QStringLiteral("U41")}));

    // Another program writes while the caller still holds its query and a half-read one was let go.
    {
        QSqlQuery medio = ejecutar(QStringLiteral("SELECT Usuario FROM CLAVES"));
        ASSERT_TRUE(medio.next());
    }
    MotorDirecto otro(familia.baseDatos());
    EXPECT_TRUE(otro.ejecutar("BEGIN IMMEDIATE; INSERT INTO CLAVES (Usuario, Tipo) VALUES ('OTRO', '1'); COMMIT;"))
        << otro.error();
    EXPECT_EQ(usuarios(), antes + 4);

    // And once the base is opened again.
    cerrarBase();
    abrirBase(familia.baseDatos());
    ejecutar(alta, {QStringLiteral("U5"), QStringLiteral("1")});
    EXPECT_EQ(usuarios(), antes + 5);
}

// ---- creation -------------------------------------------------------------------------------

TEST(CrearBase, SoloQuedaElArchivoFinal)
{
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("QL000.db"));
    crearBaseDatos(archivo, true);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("QL000.db")});
    abrirBase(archivo);
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM CONT")).toInt(), Demo::contribuyentes().size());
    EXPECT_EQ(escalar(QStringLiteral("SELECT Tipo FROM CLAVES WHERE Usuario=?"), {Demo::kUsuarioAdmin}).toString(),
              QStringLiteral("0"));
    EXPECT_EQ(escalar(QStringLiteral("SELECT Tipo FROM CLAVES WHERE Usuario=?"), {Demo::kUsuarioContador}).toString(),
              QStringLiteral("1"));
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM sqlite_master WHERE type='table'")).toInt(), 13);
    // Defaults of the columns the saves leave alone.
    ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA) VALUES (6, 'X', '202605', '0931', '180')"));
    QSqlQuery q = ejecutar(QStringLiteral("SELECT SEMANA, idcasilla FROM DET"));
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.value(0).toInt(), 0);
    EXPECT_FALSE(q.value(1).toString().isEmpty());
    cerrarBase();
    // A folder that is missing (an existing file: f931 crear-base's test).
    EXPECT_EQ(errorDe([&] { crearBaseDatos(dir.filePath(QStringLiteral("falta/QL000.db")), true); }), 76);
}

}  // namespace
