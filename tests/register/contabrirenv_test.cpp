// The picker of sent declarations: who sees what, registering, deleting one sent copy.
#include "comun/base_prueba.h"

#include "basic/msgbox.h"
#include "register/contabrirenv.h"
#include "shell/globales.h"
#include "store/base.h"

#include <gtest/gtest.h>

namespace {

using namespace DatosDemo;

// Rows of one sent copy in HCAB and HDET.
int filas(const QString& ruc, const QString& correl)
{
    int n = 0;
    for (const char* tabla : {"HCAB", "HDET"})
        n += escalar(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabla)
                         + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO='202608' AND FORMULARIO='0931' AND CORREL=?"),
                     {ruc, correl})
                 .toInt();
    return n;
}

class ContAbrirEnv : public PruebaConBase {
protected:
    void SetUp() override
    {
        // ANDINA sent 202608 twice (CORREL 1 and 2), PACIFICO (CONTADOR's) and NORTE (ADMIN's)
        // once each in 202607; another form of the same period is never listed.
        const QList<QStringList> enviadas = {{kRucAndina, "202608", "0931", "1", "11111111", "2026-09-10", "C1"},
                                             {kRucAndina, "202608", "0931", "2", "", "2026-09-12", "C2"},
                                             {kRucPacifico, "202607", "0931", "1", "", "2026-08-01", "C3"},
                                             {kRucNorte, "202607", "0931", "1", "", "2026-08-02", "C4"},
                                             {kRucAndina, "202608", "0621", "1", "", "2026-09-10", "C5"}};
        for (const QStringList& d : enviadas) {
            ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, NORDEN, FEC_ENV, CONTROL)"
                                    " VALUES (6, ?, ?, ?, ?, ?, ?, ?)"),
                     {d[0], d[1], d[2], d[3], d[4], d[5], d[6]});
            ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CASILLA)"
                                    " VALUES (6, ?, ?, ?, ?, '500')"),
                     {d[0], d[1], d[2], d[3]});
        }
        G().gsPeriodo = QStringLiteral("202608");
    }

    // A picker as the command opens it in mode `opcion`, with its outside calls recorded.
    FrmContAbrirEnv abrir(qint16 opcion)
    {
        G().giOpcion = opcion;
        G().gbEnviada = true;
        FrmContAbrirEnv f;
        f.abreDeclaracion = [this](qint16 modo, const QStringList& datos) {
            aperturas << QString::number(modo) + QLatin1Char(':') + datos.join(QLatin1Char('|'));
        };
        f.paneles = [this](const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario) {
            barras << QStringList{ruc, nombre, periodo, formulario}.join(QLatin1Char('|'));
        };
        f.cerrar = [this] { ++cierres; };
        f.Form_Load();
        cargadas = lista(f);
        f.visible = true;
        f.Form_Activate();
        return f;
    }

    static QStringList lista(const FrmContAbrirEnv& f)
    {
        QStringList l;
        for (const FilaContAbrirEnv& r : f.filas)
            l << r.ruc + QLatin1Char(' ') + r.periodo + QLatin1Char('/') + r.correl;
        return l;
    }

    RespondedorGuion& respondedor() { return familia.respondedor(); }
    QStringList aperturas, barras, cargadas;
    int cierres = 0;
};

TEST_F(ContAbrirEnv, CadaModoTieneSusTitulos)
{
    const QList<QStringList> modos = {
        {"Registrar número de orden", "&Registrar",
         "Seleccione la Declaración en la que desea registrar el número de orden asignado por TAVEN :", "1"},
        {"Eliminar Declaraciones Enviadas", "&Eliminar", "Seleccione la Declaración que desea eliminar :", "1"},
        {"Registrar número de orden", "", "", "0"}};
    const qint16 opciones[] = {2, 3, 0};
    for (int i = 0; i < 3; ++i) {
        const FrmContAbrirEnv f = abrir(opciones[i]);
        EXPECT_EQ(QStringList({f.Caption, f.CmdOpciones[0], f.Label1, QString::number(f.correlOculta)}), modos[i]);
    }
}

// The load shows the current period only, the activation every period; type "0" sees every
// taxpayer, others their own, a user without a row in CLAVES nothing.
TEST_F(ContAbrirEnv, CadaUsuarioVeSusEnviadas)
{
    const QString a1 = kRucAndina + QStringLiteral(" 202608/1"), a2 = kRucAndina + QStringLiteral(" 202608/2");
    const QString pacifico = kRucPacifico + QStringLiteral(" 202607/1"), norte = kRucNorte + QStringLiteral(" 202607/1");
    const struct {
        QString usuario;
        QStringList cargadas, activas;
    } casos[] = {{kAdmin, {a1, a2}, {a1, a2, pacifico, norte}},
                 {kContador, {a1, a2}, {a1, a2, pacifico}},
                 {QStringLiteral("NADIE"), {}, {}}};
    for (const auto& c : casos) {
        familia.comoUsuario(c.usuario);
        G().gsPeriodo = QStringLiteral("202608");
        const FrmContAbrirEnv f = abrir(2);
        EXPECT_EQ(cargadas, c.cargadas) << c.usuario.toStdString();
        EXPECT_EQ(lista(f), c.activas) << c.usuario.toStdString();
    }
    familia.comoUsuario(kAdmin);
    const FilaContAbrirEnv primera = abrir(2).filas.first();
    EXPECT_EQ(QStringList({primera.nombre, primera.norden, primera.fecEnv, primera.control}),
              QStringList({kNombreAndina, "11111111", "10/09/2026", "C1"}));
}

TEST_F(ContAbrirEnv, RegistrarTomaLosDatosDeLaFila)
{
    familia.comoUsuario(kAdmin);
    G().gsPeriodo = QStringLiteral("202608");
    FrmContAbrirEnv f = abrir(2);
    f.grdContrib_RowColChange(2);   // PACIFICO 202607: the row's period, as stored
    EXPECT_EQ(barras.last(), kRucPacifico + QLatin1Char('|') + kNombrePacifico + QStringLiteral("|202607|0931"));
    f.grdContrib_DblClick();
    EXPECT_EQ(aperturas, QStringList{QStringLiteral("1:") + kRucPacifico + QLatin1Char('|') + kNombrePacifico});
    const Globales& g = G();
    EXPECT_EQ(QStringList({g.gsPeriodo, g.gsRuc, g.gsNorden, g.gsCorrel, g.gsControl}),
              QStringList({"202607", kRucPacifico, "", "1", "C3"}));
    EXPECT_EQ(G().gsPeriodoSel, QStringLiteral("202607"));
    f.grdContrib_RowColChange(0);
    // "&Salir" takes the period of the row it stands on.
    f.CmdOpciones_Click(1);
    EXPECT_EQ(barras.last(), QStringLiteral("||202608|0931"));
    EXPECT_EQ(cierres, 1);
}

TEST_F(ContAbrirEnv, ConLaListaVaciaElBotonNoHaceNada)
{
    familia.comoUsuario(QStringLiteral("NADIE"));
    for (qint16 opcion : {2, 3}) {
        FrmContAbrirEnv f = abrir(opcion);
        G().gsRuc = QStringLiteral("X");
        f.CmdOpciones_Click(0);
        EXPECT_EQ(G().gsPeriodo, QString());
        EXPECT_EQ(G().gsRuc, QStringLiteral("X"));
    }
    EXPECT_TRUE(aperturas.isEmpty());
    EXPECT_TRUE(respondedor().mostrados.isEmpty());
}

// Of two sent copies of one period only the picked one goes, and only after a Yes.
TEST_F(ContAbrirEnv, EliminarBorraSoloLaCopiaElegida)
{
    familia.comoUsuario(kAdmin);
    FrmContAbrirEnv f = abrir(3);
    f.grdContrib_RowColChange(1);   // ANDINA 202608, CORREL 2
    respondedor().respuestas = {vbNo, vbYes};
    f.CmdOpciones_Click(0);
    const MensajeMostrado& m = respondedor().mostrados.first();
    EXPECT_EQ(m.texto, QStringLiteral("¿Confirma que va a eliminar la declaración seleccionada?"));
    EXPECT_EQ(m.flags, 292);
    EXPECT_EQ(m.titulo, QStringLiteral("Eliminar Declaraciones Enviadas"));
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("2")), 2);

    f.CmdOpciones_Click(0);
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("2")), 0);
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("1")), 2);
    EXPECT_EQ(G().gsCorrel, QStringLiteral("2"));
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM HCAB WHERE FORMULARIO='0621'"), {}).toInt(), 1);
    EXPECT_EQ(lista(f).size(), 3);
    EXPECT_EQ(f.fila, 1);
}

}  // namespace
