// The picker of working declarations: who sees what, opening, deleting, and its errors.
#include "comun/base_prueba.h"

#include "basic/msgbox.h"
#include "register/contabrir.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QSqlQuery>
#include <gtest/gtest.h>

#include <ostream>

static inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace {

using namespace DatosDemo;

// A working declaration in all four tables.
void declaracion(const QString& ruc, const QString& periodo, int estado = 0, const QString& formulario = QStringLiteral("0931"))
{
    const QVariantList clave{ruc, periodo, formulario};
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO, cNumero)"
                            " VALUES (6, ?, ?, ?, ?, '123456')"),
             clave + QVariantList{estado});
    for (const char* casilla : {"500", "002"})
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR, cNumero)"
                                " VALUES (6, ?, ?, ?, ?, '1', '123456')"),
                 clave + QVariantList{QString::fromLatin1(casilla)});
    ejecutar(QStringLiteral("INSERT INTO ACTA (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, cNumero) VALUES (6, ?, ?, ?, '1')"), clave);
    ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe, cNumero)"
                            " VALUES (6, ?, ?, ?, '2024', '100', '1')"),
             clave);
}

int filas(const char* tabla, const QString& ruc, const QString& periodo)
{
    return escalar(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabla) + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO=?"),
                   {ruc, periodo})
        .toInt();
}

int filasDeclaracion(const QString& ruc, const QString& periodo)
{
    int n = 0;
    for (const char* tabla : {"CAB", "DET", "ACTA", "F0931_PTCEA"})
        n += filas(tabla, ruc, periodo);
    return n;
}

QStringList lista(const FrmContAbrir& f)
{
    QStringList l;
    for (const FilaContAbrir& r : f.filas)
        l << r.ruc + QLatin1Char(' ') + r.periodo;
    return l;
}

class ContAbrir : public PruebaConBase {
protected:
    void SetUp() override
    {
        declaracion(kRucPacifico, QStringLiteral("202608"));
        declaracion(kRucAndina, QStringLiteral("202605"), 9);
        declaracion(kRucAndina, QStringLiteral("202608"));
        declaracion(kRucNorte, QStringLiteral("202608"));
        declaracion(kRucAndina, QStringLiteral("202608"), 0, QStringLiteral("0621"));   // another form
        declaracion(kDniOtroTipo, QStringLiteral("202608"));                            // a DNI, not a RUC
    }

    // A picker as the command opens it, with its outside calls recorded.
    FrmContAbrir abrir(qint16 opcion)
    {
        FrmContAbrir f(opcion);
        f.abreDeclaracion = [this](qint16 modo, const QStringList& datos) {
            aperturas << QString::number(modo) + QLatin1Char(':') + datos.join(QLatin1Char('|'));
            periodoAlAbrir = G().gsPeriodo;
        };
        f.barraEstado = [this](const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario) {
            barras << QStringList{ruc, nombre, periodo, formulario}.join(QLatin1Char('|'));
        };
        f.cerrar = [this] { ++cierres; };
        f.Form_Load();
        f.visible = true;
        f.Form_Activate();
        return f;
    }

    RespondedorGuion& respondedor() { return familia.respondedor(); }
    QStringList aperturas, barras;
    QString periodoAlAbrir;
    int cierres = 0;
};

struct CasoTitulos {
    qint16 opcion;
    const char* caption;
    const char* boton;
    const char* etiqueta;
};

class Titulos : public ContAbrir, public ::testing::WithParamInterface<CasoTitulos> {};

TEST_P(Titulos, CadaModoTieneLosSuyos)
{
    const CasoTitulos& c = GetParam();
    const FrmContAbrir f = abrir(c.opcion);
    EXPECT_EQ(f.Caption.toStdString(), c.caption);
    EXPECT_EQ(f.CmdOpciones[0].toStdString(), c.boton);
    EXPECT_EQ(f.Label1.toStdString(), c.etiqueta);
    EXPECT_EQ(f.CmdOpciones[1], QStringLiteral("&Salir"));
    EXPECT_EQ(f.Frame1, QStringLiteral("Declaraciones Registradas"));
}

INSTANTIATE_TEST_SUITE_P(
    Modos, Titulos,
    ::testing::Values(CasoTitulos{1, "Modificar Declaraciones", "&Modificar", "Seleccione la Declaración que desea modificar :"},
                      CasoTitulos{3, "Eliminar Declaraciones", "&Eliminar", "Seleccione la Declaración que desea eliminar :"},
                      CasoTitulos{2, "Actualizar Declaraciones", "", ""}));

TEST_F(ContAbrir, CadaUsuarioVeSusContribuyentesEnOrdenDeRuc)
{
    EXPECT_EQ(FrmContAbrir::columnas(), (QStringList{QStringLiteral("RUC"), QStringLiteral("Razón Social"),
                                                     QStringLiteral("Periodo"), QStringLiteral("Formulario")}));
    // ADMIN (type "0") sees every taxpayer; both states are listed.
    FrmContAbrir todos = abrir(1);
    EXPECT_EQ(lista(todos), (QStringList{kRucAndina + QStringLiteral(" 202605"), kRucAndina + QStringLiteral(" 202608"),
                                         kRucPacifico + QStringLiteral(" 202608"), kRucNorte + QStringLiteral(" 202608")}));
    EXPECT_EQ(todos.filas.first().nombre, kNombreAndina);
    EXPECT_EQ(todos.filas.first().formulario, QStringLiteral("0931"));
    EXPECT_EQ(todos.fila, 0);

    // CONTADOR (type "1") doesn't see ADMIN's taxpayer.
    familia.comoUsuario(kContador);
    const FrmContAbrir propios = abrir(1);
    EXPECT_EQ(lista(propios), (QStringList{kRucAndina + QStringLiteral(" 202605"), kRucAndina + QStringLiteral(" 202608"),
                                           kRucPacifico + QStringLiteral(" 202608")}));

    // A user without a row in CLAVES counts as type "1" and owns nothing.
    familia.comoUsuario(QStringLiteral("NADIE"));
    EXPECT_TRUE(abrir(1).filas.isEmpty());
}

TEST_F(ContAbrir, ModificarAbreLaDeclaracionDeLaFilaYVuelveAElla)
{
    FrmContAbrir f = abrir(1);
    f.grdContrib_RowColChange(2);
    f.CmdOpciones_Click(0);
    EXPECT_EQ(aperturas, QStringList{QStringLiteral("1:") + kRucPacifico + QLatin1Char('|') + kNombrePacifico});
    EXPECT_EQ(periodoAlAbrir, QStringLiteral("202608"));
    EXPECT_EQ(G().gsPeriodoSel, QStringLiteral("202608"));
    EXPECT_EQ(f.nPosicion, 2);
    EXPECT_EQ(f.fila, 2);
    // The list is read again on the next activation and the cursor comes back to the row.
    f.grdContrib_RowColChange(0);
    f.Form_Activate();
    EXPECT_EQ(f.fila, 2);

    f.grdContrib_DblClick();
    EXPECT_EQ(aperturas.size(), 2);
    EXPECT_TRUE(respondedor().mostrados.isEmpty());
}

TEST_F(ContAbrir, ElPeriodoSeTomaDeLaFilaConCualquierBoton)
{
    FrmContAbrir f = abrir(1);
    f.grdContrib_RowColChange(0);
    G().gsPeriodo = QStringLiteral("2026");
    f.CmdOpciones_Click(1);
    EXPECT_EQ(G().gsPeriodo, QStringLiteral("202605"));
    EXPECT_EQ(cierres, 1);
    EXPECT_EQ(barras.last(), QStringLiteral("|||0931"));
    EXPECT_TRUE(aperturas.isEmpty());
}

TEST_F(ContAbrir, ConLaListaVaciaElBotonNoHaceNada)
{
    familia.comoUsuario(QStringLiteral("NADIE"));
    for (qint16 opcion : {1, 3}) {
        FrmContAbrir f = abrir(opcion);
        G().gsPeriodo = QStringLiteral("202608");
        f.CmdOpciones_Click(0);
        EXPECT_EQ(G().gsPeriodo, QString());
        EXPECT_TRUE(aperturas.isEmpty());
        EXPECT_TRUE(respondedor().mostrados.isEmpty());
    }
}

TEST_F(ContAbrir, EliminarPreguntaYBorraLasCuatroTablasDeEsaDeclaracion)
{
    FrmContAbrir f = abrir(3);
    f.grdContrib_RowColChange(1);   // ANDINA 202608

    respondedor().respuestas = {vbNo};
    f.CmdOpciones_Click(0);
    ASSERT_EQ(respondedor().mostrados.size(), 1);
    const MensajeMostrado& m = respondedor().mostrados.first();
    EXPECT_EQ(m.texto, QStringLiteral("¿Confirma que va a eliminar la declaración de\r\n\r\n") + kNombreAndina + QStringLiteral("?"));
    EXPECT_EQ(m.flags, 292);
    EXPECT_EQ(m.titulo, QStringLiteral("Eliminar Declaraciones"));
    EXPECT_EQ(filasDeclaracion(kRucAndina, QStringLiteral("202608")), 10);   // with the other form's

    respondedor().respuestas = {vbYes};
    f.CmdOpciones_Click(0);
    // The same period of another form is another declaration: it stays whole.
    EXPECT_EQ(filasDeclaracion(kRucAndina, QStringLiteral("202608")), 5);
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM DET WHERE DOC_ID_D=? AND PERIODO='202608' AND FORMULARIO='0621'"),
                      {kRucAndina}).toInt(),
              2);
    EXPECT_EQ(filasDeclaracion(kRucAndina, QStringLiteral("202605")), 5);
    EXPECT_EQ(filasDeclaracion(kRucPacifico, QStringLiteral("202608")), 5);
    EXPECT_EQ(lista(f).size(), 3);
    EXPECT_EQ(f.fila, 1);   // the row that took its place
    EXPECT_FALSE(f.descargado);
}

TEST_F(ContAbrir, BorrarLaUltimaDejaLaListaVacia)
{
    familia.comoUsuario(kContador);
    FrmContAbrir f = abrir(3);
    // The last row first: the cursor moves to the row that is last now.
    f.grdContrib_RowColChange(2);
    respondedor().respuestas = {vbYes, vbYes, vbYes};
    f.CmdOpciones_Click(0);
    EXPECT_EQ(f.fila, 1);
    f.CmdOpciones_Click(0);
    f.CmdOpciones_Click(0);
    EXPECT_TRUE(f.filas.isEmpty());
    EXPECT_EQ(f.fila, -1);
    f.Form_Activate();
    EXPECT_TRUE(f.filas.isEmpty());
    EXPECT_EQ(respondedor().mostrados.size(), 3);   // the three questions, no error
}

// A failure in the middle of a deletion deletes nothing and tells the engine's text.
TEST_F(ContAbrir, UnFalloAlEliminarNoBorraNada)
{
    ejecutar(QStringLiteral("CREATE TRIGGER no_borrar BEFORE DELETE ON CAB BEGIN SELECT RAISE(ABORT, 'cabecera protegida'); END"));
    FrmContAbrir f = abrir(3);
    f.grdContrib_RowColChange(0);
    respondedor().respuestas = {vbYes};
    f.CmdOpciones_Click(0);
    ASSERT_EQ(respondedor().mostrados.size(), 2);
    const MensajeMostrado& m = respondedor().mostrados.last();
    EXPECT_EQ(m.titulo, QStringLiteral("Error"));
    EXPECT_EQ(m.flags, 0);
    EXPECT_TRUE(m.texto.startsWith(QStringLiteral("cabecera protegida"))) << m.texto.toStdString();
    EXPECT_TRUE(m.texto.contains(QChar(10)));
    EXPECT_EQ(filasDeclaracion(kRucAndina, QStringLiteral("202605")), 5);
    EXPECT_EQ(lista(f).size(), 4);
}

TEST_F(ContAbrir, LaBarraDeEstadoSigueAlCursorSoloConElFormularioALaVista)
{
    FrmContAbrir f = abrir(1);
    f.visible = false;
    f.grdContrib_RowColChange(3);
    EXPECT_TRUE(barras.isEmpty());
    f.visible = true;
    f.grdContrib_RowColChange(2);
    EXPECT_EQ(barras, QStringList{kRucPacifico + QLatin1Char('|') + kNombrePacifico + QStringLiteral("|202608|0931")});
}

}  // namespace
