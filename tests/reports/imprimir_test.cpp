// The print selection: the two lists, the user filter, the buttons. The page range that
// "&Preliminar" leaves in force for a later "&Imprimir" is the window's test (vistas/imprimir).
#include "comun/base_prueba.h"

#include "reports/imprimir.h"
#include "reports/reproduccion.h"
#include "shell/comandos.h"
#include "shell/globales.h"
#include "store/base.h"

#include <gtest/gtest.h>

namespace {

class Imprimir : public PruebaConBase {
protected:
    QList<DocumentoSpool> impresos;
    int rangos = 0;   // range dialogs opened

    void SetUp() override
    {
        instalarDestinoImpresion([this](const DocumentoSpool& d) { impresos << d; });
        instalarAbridorImpxPag([this](const QString&, qint16, const QString&) { ++rangos; });
        barraEstado() = EstadoBarra();
    }
    void TearDown() override
    {
        instalarDestinoImpresion({});
        instalarAbridorImpxPag({});
    }

    static void cabecera(const QString& ruc, const QString& periodo)
    {
        ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO, RECTIFICA, SEMANA) "
                                "VALUES (6,?,?,'0931',0,'0',3)"),
                 {ruc, periodo});
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR) "
                                "VALUES (6,?,?,'0931','100','1000')"),
                 {ruc, periodo});
    }
    static void enviada(const QString& ruc, const QString& periodo, const QString& correl, int estado)
    {
        ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, ESTADO, FEC_ENV, NORDEN, "
                                "CONTROL) VALUES (6,?,?,'0931',?,?,'2013-09-02','750123','98765')"),
                 {ruc, periodo, correl, estado});
    }
    static QStringList columna(const ModeloImprimir& m, int c)
    {
        QStringList l;
        for (const QStringList& f : m.filas)
            l << f[c];
        return l;
    }
};

} // namespace

TEST_F(Imprimir, ListaDeTrabajoPorUsuario)
{
    cabecera(DatosDemo::kRucAndina, QStringLiteral("201206"));
    cabecera(DatosDemo::kRucAndina, QStringLiteral("201306"));
    cabecera(DatosDemo::kRucNorte, QStringLiteral("201206"));
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO) VALUES (6,?,'201206','0621')"),
             {DatosDemo::kRucPacifico});

    ModeloImprimir m;
    m.Form_Load();   // ADMIN sees every taxpayer
    EXPECT_EQ(m.Caption, QStringLiteral("Imprimir "));
    EXPECT_EQ(m.Frame2, QStringLiteral("Declaraciones registradas"));
    EXPECT_EQ(columna(m, ModeloImprimir::ColDocId),
              (QStringList{DatosDemo::kRucAndina, DatosDemo::kRucAndina, DatosDemo::kRucNorte}));
    EXPECT_EQ(columna(m, ModeloImprimir::ColPeriodof), (QStringList{"201306", "201206", "201206"}));
    EXPECT_EQ(m.filas[0][ModeloImprimir::ColNombre], DatosDemo::kNombreAndina);
    EXPECT_EQ(m.filas[0][ModeloImprimir::ColSemana], QStringLiteral("3"));
    const bool visibles[ModeloImprimir::kColumnas] = {true, true, false, true, true, false, false, false, false, false, true, true};
    for (int c = 0; c < ModeloImprimir::kColumnas; ++c)
        EXPECT_EQ(m.columnaVisible[c], visibles[c]) << c;
    EXPECT_EQ(G().gbRptEnviada, 0);
    // The status bar follows the row in hand.
    m.grdContrib_RowColChange(2);
    EXPECT_EQ(barraEstado().PanelRuc, DatosDemo::kRucNorte);
    EXPECT_EQ(barraEstado().PanelPeriodo, QStringLiteral("2012/06"));

    familia.comoUsuario(DatosDemo::kContador);
    ModeloImprimir propio;
    propio.Form_Load();
    EXPECT_EQ(columna(propio, ModeloImprimir::ColDocId), (QStringList{DatosDemo::kRucAndina, DatosDemo::kRucAndina}));
}

TEST_F(Imprimir, ListaDeEnviadas)
{
    G().gbImpEnviada = true;
    enviada(DatosDemo::kRucPacifico, QStringLiteral("201306"), QStringLiteral("01"), 1);
    enviada(DatosDemo::kRucPacifico, QStringLiteral("201306"), QStringLiteral("02"), 0);
    ModeloImprimir m;
    m.Form_Load();
    EXPECT_EQ(m.Caption, QStringLiteral("Imprimir Formularios enviados"));
    EXPECT_EQ(m.Frame2, QStringLiteral("Declaraciones Enviadas"));
    EXPECT_EQ(G().gbRptEnviada, -1);
    ASSERT_EQ(m.filas.size(), 1);   // only ESTADO 1
    const QStringList& f = m.filas[0];
    EXPECT_EQ(f[ModeloImprimir::ColCorrel], QStringLiteral("01"));
    EXPECT_EQ(f[ModeloImprimir::ColNorden], QStringLiteral("750123"));
    EXPECT_EQ(f[ModeloImprimir::ColControl], QStringLiteral("98765"));
    EXPECT_EQ(f[ModeloImprimir::ColFecEnv], QStringLiteral("02/09/2013"));
    EXPECT_FALSE(m.columnaVisible[ModeloImprimir::ColPeriodo]);
    EXPECT_FALSE(m.columnaVisible[ModeloImprimir::ColEstado]);
    EXPECT_TRUE(m.columnaVisible[ModeloImprimir::ColNorden]);
    // The sent heading line with control and order number: the golden enviada_2013.
}

TEST_F(Imprimir, ListaVaciaNoHaceNada)
{
    ModeloImprimir m;
    m.Form_Load();
    EXPECT_FALSE(m.grdContribHabilitada);
    m.CmdImprimir_Click(0);
    m.CmdImprimir_Click(1);
    EXPECT_EQ(rangos, 0);
    EXPECT_TRUE(impresos.isEmpty());
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM SPOOL")).toInt(), 0);
    m.CmdImprimir_Click(2);
    EXPECT_TRUE(m.descargar);
}

// The options and the annex boxes, as clicked in turn ("o<n>" an option, "c<n>" a box): the
// option "Declaración" disables and clears boxes 0 to 2, the other two enable them and keep
// their marks; the box "Anexos" (3) keeps its mark whatever the option.
TEST_F(Imprimir, OpcionesYCasillasDeAnexos)
{
    const struct {
        const char* clics;
        const char* esperado;   // boxes 0 to 2 enabled, then the four marks
    } casos[] = {
        {"", "no 0000"},
        {"c3", "no 0001"},
        {"c3 o0", "no 0001"},
        {"o1", "si 0000"},
        {"o1 c0 c1 c3 o0", "no 0001"},
        {"o2 c2 o1", "si 0010"},
        {"o1 c0 c3 c3 o2", "si 1000"},
        {"o1 c0 o0 o2", "si 0000"},
    };
    for (const auto& caso : casos) {
        ModeloImprimir m;
        for (const QString& clic : QString::fromLatin1(caso.clics).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const int n = clic.mid(1).toInt();
            if (clic.startsWith(QLatin1Char('o')))
                m.OptImp_Click(n);
            else
                m.ChkAnexos[n] = !m.ChkAnexos[n];
        }
        QString marcas;
        for (bool marca : m.ChkAnexos)
            marcas += QLatin1Char(marca ? '1' : '0');
        EXPECT_EQ(QString::fromLatin1(m.ChkAnexosHabilitados ? "si " : "no ") + marcas, QString::fromLatin1(caso.esperado))
            << caso.clics;
    }
}
