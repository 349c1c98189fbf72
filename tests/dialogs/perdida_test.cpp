// Carried-forward losses: the year rule, the rows the dialog writes, and the three buttons of
// the declaration form that open it and delete a row.
#include "comun/base_prueba.h"

#include "basic/reloj.h"
#include "dialogs/perdida.h"
#include "form931/frm931.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

namespace {

const QString kAnhoInvalido = QStringLiteral("El año no es válido.");

// The dialog as it opens, with the year and the amount typed.
FrmPerdidaEjercAnt nueva(const QString& anho, const QString& importe)
{
    FrmPerdidaEjercAnt f;
    f.Form_Load();
    f.Form_Activate();
    f.MkeAnho.Text = anho;
    f.txtImporte.Text = importe;
    return f;
}

class Perdida : public PruebaConBase {
protected:
    void SetUp() override
    {
        fijarHoy(QDate(2026, 11, 22));
        G().gsRucPerdida = DatosDemo::kRucAndina;
        G().gsPeriodo = QStringLiteral("202605");
        G().gsModoPerdida = QStringLiteral("0");
    }
    void TearDown() override { fijarHoy(QDate()); }

    QStringList textos() { return familia.respondedor().textos(); }
    // Rows of the declaration as "year=amount", in year order.
    static QStringList filas()
    {
        QStringList r;
        QSqlQuery q = ejecutar(QStringLiteral("SELECT Anho, Importe FROM F0931_PTCEA WHERE DOC_ID_D=? AND PERIODO=?"
                                              " AND FORMULARIO=? ORDER BY Anho"),
                               {G().gsRucPerdida, G().gsPeriodo, G().gsFormulario});
        while (q.next())
            r << q.value(0).toString() + QLatin1Char('=') + q.value(1).toString();
        return r;
    }
};

struct CasoAnho {
    const char* nombre;
    const char* anho;
    bool valido;
};
void PrintTo(const CasoAnho& c, std::ostream* os) { *os << c.nombre; }

class AnhoPerdida : public Perdida, public ::testing::WithParamInterface<CasoAnho> {};

TEST_P(AnhoPerdida, AceptarGrabaSoloUnAnhoValido)
{
    const CasoAnho& c = GetParam();
    FrmPerdidaEjercAnt f = nueva(QString::fromLatin1(c.anho), QStringLiteral("100"));
    f.cmdAccion_Click(0);
    EXPECT_EQ(f.cerrado, c.valido);
    if (c.valido) {
        EXPECT_TRUE(textos().isEmpty());
        EXPECT_EQ(filas(), QStringList{QString::fromLatin1(c.anho) + QStringLiteral("=100")});
    } else {
        EXPECT_EQ(textos(), QStringList{kAnhoInvalido});
        EXPECT_EQ(familia.respondedor().mostrados.value(0).titulo, f.Caption);
        EXPECT_EQ(f.foco, QStringLiteral("MkeAnho"));
        EXPECT_TRUE(filas().isEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Casos, AnhoPerdida, ::testing::Values(
    CasoAnho{"anterior_a_1950", "1949", false},
    CasoAnho{"primero_valido", "1950", true},
    CasoAnho{"anho_en_curso", "2026", false},
    CasoAnho{"anho_anterior", "2025", true},
    CasoAnho{"vacio", "____", false}),
    [](const auto& i) { return std::string(i.param.nombre); });

TEST_F(Perdida, AlSalirDelAnhoSoloSeJuzgaSiEstaLleno)
{
    FrmPerdidaEjercAnt f = nueva(QStringLiteral("20__"), QString());
    f.MkeAnho_LostFocus();
    EXPECT_TRUE(textos().isEmpty());
    f.MkeAnho.Text = QStringLiteral("2026");
    f.foco = QStringLiteral("txtImporte");
    f.MkeAnho_LostFocus();
    EXPECT_EQ(textos(), QStringList{kAnhoInvalido});
    EXPECT_EQ(f.foco, QStringLiteral("MkeAnho"));
}

TEST_F(Perdida, FilaNuevaConSuCodigoYAnhoRepetido)
{
    FrmPerdidaEjercAnt f = nueva(QStringLiteral("2010"), QStringLiteral("1,234,567"));
    f.cmdAccion_Click(0);
    ASSERT_TRUE(f.cerrado);
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM F0931_PTCEA"));
    ASSERT_TRUE(q.next());
    const QSqlRecord r = q.record();
    EXPECT_EQ(r.value(QStringLiteral("Tip_doc_d")).toInt(), 6);
    EXPECT_EQ(r.value(QStringLiteral("Importe")).toString(), QStringLiteral("1234567"));
    EXPECT_EQ(r.value(QStringLiteral("cNumero")).toString(), CodigoFila(r, 5));

    FrmPerdidaEjercAnt otra = nueva(QStringLiteral("2010"), QStringLiteral("5"));
    otra.cmdAccion_Click(0);
    EXPECT_FALSE(otra.cerrado);
    EXPECT_EQ(textos(), QStringList{QStringLiteral("Ya se registro importe para el año 2010")});
    EXPECT_EQ(otra.txtImporte.Text, QStringLiteral("5"));
    EXPECT_EQ(filas(), QStringList{QStringLiteral("2010=1234567")});
}

TEST_F(Perdida, ImporteVacioSeReclamaYCeroPasa)
{
    FrmPerdidaEjercAnt f = nueva(QStringLiteral("2011"), QStringLiteral("  "));
    f.cmdAccion_Click(0);
    EXPECT_FALSE(f.cerrado);
    EXPECT_EQ(textos(), QStringList{QStringLiteral("Ingrese el Importe de la pérdida consignada en la DDJJ Anual")});
    EXPECT_EQ(f.foco, QStringLiteral("txtImporte"));
    f.txtImporte.Text = QStringLiteral("0");
    f.cmdAccion_Click(0);
    EXPECT_TRUE(f.cerrado);
    EXPECT_EQ(filas(), QStringList{QStringLiteral("2011=0")});
}

TEST_F(Perdida, CambioConservaElAnhoYSalirNoGraba)
{
    nueva(QStringLiteral("2012"), QStringLiteral("700")).cmdAccion_Click(0);
    G().gsModoPerdida = QStringLiteral("1");
    G().gsAnhoPerdida = QStringLiteral("2012");
    G().gsImportePerdida = QStringLiteral("700");
    // (The year shut, the focus on the amount and its picture: the dialog's scenario.)
    FrmPerdidaEjercAnt f;
    f.Form_Load();
    f.Form_Activate();
    f.txtImporte.Text = QStringLiteral("1,800");
    f.cmdAccion_Click(0);
    EXPECT_TRUE(f.cerrado);
    EXPECT_EQ(filas(), QStringList{QStringLiteral("2012=1800")});
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM F0931_PTCEA"));
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(q.record(), 5));

    FrmPerdidaEjercAnt salir;
    salir.Form_Load();
    salir.txtImporte.Text = QStringLiteral("9");
    salir.cmdAccion_Click(1);
    EXPECT_TRUE(salir.cerrado);
    EXPECT_EQ(filas(), QStringList{QStringLiteral("2012=1800")});
}

// ------------------------------------------------------------- the buttons of the form

class EntornoPerdida : public EntornoSinPantalla {
public:
    void abrirPerdida() override
    {
        modos << G().gsModoPerdida + QLatin1Char(':') + G().gsAnhoPerdida + QLatin1Char(':') + G().gsImportePerdida;
        if (G().gsModoPerdida == QLatin1String("0")) {
            FrmPerdidaEjercAnt f = nueva(anho, QStringLiteral("300"));
            f.cmdAccion_Click(0);
        }
    }
    QString anho;
    QStringList modos;
};

class BotonesPerdida : public Perdida {
protected:
    EntornoPerdida entorno;
    Frm931 frm{&entorno};
    void SetUp() override
    {
        Perdida::SetUp();
        G().gsRucPerdida.clear();
        frm.CmbRuc.items = {DatosDemo::kRucAndina + QStringLiteral(" - ") + DatosDemo::kNombreAndina};
        frm.CmbRuc.ListIndex = 0;
        frm.CboBalance.items = {QStringLiteral("A"), QStringLiteral("B")};
        frm.CboBalance.ListIndex = 0;
        frm.SSTab4.Tab = 1;
    }
    void nuevaFila(const QString& anho)
    {
        entorno.anho = anho;
        frm.cmdPerdida_Click(0);
    }
    QStringList grilla() const
    {
        QStringList r;
        for (const auto& f : frm.grdPerdidaTributaria)
            r << f.first + QLatin1Char('=') + f.second;
        return r;
    }
};

TEST_F(BotonesPerdida, NuevoModificarYEliminarSobreLaFilaActual)
{
    nuevaFila(QStringLiteral("2009"));
    nuevaFila(QStringLiteral("2010"));
    EXPECT_EQ(G().gsRucPerdida, DatosDemo::kRucAndina);
    EXPECT_EQ(grilla(), (QStringList{QStringLiteral("2009=300"), QStringLiteral("2010=300")}));

    frm.filaPerdida = 1;
    frm.cmdPerdida_Click(1);
    EXPECT_EQ(entorno.modos.last(), QStringLiteral("1:2010:300"));

    familia.respondedor().respuestas = {vbNo, vbYes};
    frm.cmdPerdida_Click(2);
    EXPECT_EQ(grilla().size(), 2);
    const MensajeMostrado m = familia.respondedor().mostrados.value(0);
    EXPECT_EQ(m.texto, QStringLiteral("¿Confirma que va a eliminar?"));
    EXPECT_EQ(m.flags, vbYesNo + vbQuestion + vbDefaultButton2);
    frm.cmdPerdida_Click(2);
    EXPECT_EQ(grilla(), QStringList{QStringLiteral("2009=300")});
}

TEST_F(BotonesPerdida, SinFilasModificarYEliminarNoHacenNada)
{
    frm.cmdPerdida_Click(1);
    frm.cmdPerdida_Click(2);
    EXPECT_TRUE(entorno.modos.isEmpty());
    EXPECT_TRUE(textos().isEmpty());
}

struct CasoPeriodo {
    const char* nombre;
    const char* periodo;
    int balance;
    const char* resultado;   // empty: the form asks for the payment system
};
void PrintTo(const CasoPeriodo& c, std::ostream* os) { *os << c.nombre; }

class PeriodoPerdida : public BotonesPerdida, public ::testing::WithParamInterface<CasoPeriodo> {};

TEST_P(PeriodoPerdida, MesSegunAnhoYBalance)
{
    const CasoPeriodo& c = GetParam();
    G().gsPeriodo = QString::fromLatin1(c.periodo);
    frm.CboBalance.ListIndex = c.balance;
    frm.cmdPerdida_Click(0);
    const QString esperado = QString::fromLatin1(c.resultado);
    EXPECT_EQ(G().gsPeriodo, esperado);
    if (esperado.isEmpty())
        EXPECT_EQ(textos(), QStringList{QStringLiteral("Debe seleccionar el sistema de pago")});
    EXPECT_EQ(entorno.modos.size(), esperado.isEmpty() ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(Casos, PeriodoPerdida, ::testing::Values(
    CasoPeriodo{"antes_2013_primero", "201206", 0, "201201"},
    CasoPeriodo{"antes_2013_segundo", "201201", 1, "201206"},
    CasoPeriodo{"desde_2013_primero", "201308", 0, "201305"},
    CasoPeriodo{"desde_2013_segundo", "202605", 1, "202608"},
    CasoPeriodo{"sin_balance_queda", "202605", -1, "202605"},
    CasoPeriodo{"sin_periodo", "", -1, ""}),
    [](const auto& i) { return std::string(i.param.nombre); });

}  // namespace
