// The picker of working declarations: who sees what, opening, deleting, and its errors.
#include "comun/base_prueba.h"

#include "basic/msgbox.h"
#include "register/contabrir.h"
#include "shell/globales.h"
#include "store/base.h"

#include <gtest/gtest.h>

namespace {

using namespace DatosDemo;

// Rows of one declaration in the four tables of a working declaration.
int filas(const QString& ruc, const QString& periodo, const QString& formulario = QStringLiteral("0931"))
{
    int n = 0;
    for (const char* tabla : {"CAB", "DET", "ACTA", "F0931_PTCEA"})
        n += escalar(QStringLiteral("SELECT count(*) FROM ") + QLatin1String(tabla)
                         + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO=? AND FORMULARIO=?"),
                     {ruc, periodo, formulario})
                 .toInt();
    return n;
}

class ContAbrir : public PruebaConBase {
protected:
    void SetUp() override
    {
        // ANDINA 202605 in state 9, another form of the same period, and a DNI row.
        const QList<QStringList> declaraciones = {{kRucPacifico, "202608", "0931"}, {kRucAndina, "202605", "0931"},
                                                  {kRucAndina, "202608", "0931"},   {kRucNorte, "202608", "0931"},
                                                  {kRucAndina, "202608", "0621"},   {kDniOtroTipo, "202608", "0931"}};
        for (const QStringList& d : declaraciones) {
            const QVariantList clave{d[0], d[1], d[2]};
            ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, ESTADO) VALUES (6, ?, ?, ?, ?)"),
                     clave + QVariantList{d[1] == QLatin1String("202605") ? 9 : 0});
            ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA) VALUES (6, ?, ?, ?, '500')"), clave);
            ejecutar(QStringLiteral("INSERT INTO ACTA (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO) VALUES (6, ?, ?, ?)"), clave);
            ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho) VALUES (6, ?, ?, ?, '2024')"), clave);
        }
    }

    // A picker as the command opens it, with its outside calls recorded.
    FrmContAbrir abrir(qint16 opcion)
    {
        FrmContAbrir f(opcion);
        f.abreDeclaracion = [this](qint16 modo, const QStringList& datos) {
            aperturas << QString::number(modo) + QLatin1Char(':') + datos.join(QLatin1Char('|')) + QLatin1Char('@') + G().gsPeriodo;
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

    static QStringList lista(const FrmContAbrir& f)
    {
        QStringList l;
        for (const FilaContAbrir& r : f.filas)
            l << r.ruc + QLatin1Char(' ') + r.periodo;
        return l;
    }

    RespondedorGuion& respondedor() { return familia.respondedor(); }
    QStringList aperturas, barras;
    int cierres = 0;
};

TEST_F(ContAbrir, CadaModoTieneSusTitulos)
{
    const QList<QStringList> modos = {
        {"Modificar Declaraciones", "&Modificar", "Seleccione la Declaración que desea modificar :"},
        {"Eliminar Declaraciones", "&Eliminar", "Seleccione la Declaración que desea eliminar :"},
        {"Actualizar Declaraciones", "", ""}};
    const qint16 opciones[] = {1, 3, 2};
    for (int i = 0; i < 3; ++i) {
        const FrmContAbrir f = abrir(opciones[i]);
        EXPECT_EQ(QStringList({f.Caption, f.CmdOpciones[0], f.Label1}), modos[i]);
        EXPECT_EQ(f.CmdOpciones[1], QStringLiteral("&Salir"));
    }
}

// Type "0" sees every taxpayer, others their own, a user without a row in CLAVES nothing;
// both states are listed, in the order of the RUC; other forms and other document types never.
TEST_F(ContAbrir, CadaUsuarioVeSusContribuyentes)
{
    const QString andina5 = kRucAndina + QStringLiteral(" 202605"), andina8 = kRucAndina + QStringLiteral(" 202608");
    EXPECT_EQ(lista(abrir(1)), (QStringList{andina5, andina8, kRucPacifico + QStringLiteral(" 202608"),
                                           kRucNorte + QStringLiteral(" 202608")}));
    EXPECT_EQ(abrir(1).filas.first().nombre, kNombreAndina);
    familia.comoUsuario(kContador);
    EXPECT_EQ(lista(abrir(1)), (QStringList{andina5, andina8, kRucPacifico + QStringLiteral(" 202608")}));
    familia.comoUsuario(QStringLiteral("NADIE"));
    EXPECT_TRUE(abrir(1).filas.isEmpty());
}

TEST_F(ContAbrir, ModificarAbreLaFilaYVuelveAElla)
{
    FrmContAbrir f = abrir(1);
    f.grdContrib_RowColChange(2);
    EXPECT_EQ(barras.last(), kRucPacifico + QLatin1Char('|') + kNombrePacifico + QStringLiteral("|202608|0931"));
    f.grdContrib_DblClick();
    EXPECT_EQ(aperturas, QStringList{QStringLiteral("1:") + kRucPacifico + QLatin1Char('|') + kNombrePacifico + QStringLiteral("@202608")});
    EXPECT_EQ(G().gsPeriodoSel, QStringLiteral("202608"));
    // (Where the cursor stays on activation: the picker's widget test.)
    f.grdContrib_RowColChange(0);
    // Hidden, the cursor no longer moves the status bar; "&Salir" still takes the period.
    const qsizetype antes = barras.size();
    f.visible = false;
    f.grdContrib_RowColChange(0);
    EXPECT_EQ(barras.size(), antes);
    f.CmdOpciones_Click(1);
    EXPECT_EQ(G().gsPeriodo, QStringLiteral("202605"));
    EXPECT_EQ(barras.last(), QStringLiteral("|||0931"));
    EXPECT_EQ(cierres, 1);
}

TEST_F(ContAbrir, ConLaListaVaciaElBotonNoHaceNadaPeroBorraElPeriodo)
{
    familia.comoUsuario(QStringLiteral("NADIE"));
    for (qint16 opcion : {1, 3}) {
        FrmContAbrir f = abrir(opcion);
        G().gsPeriodo = QStringLiteral("202608");
        f.CmdOpciones_Click(0);
        EXPECT_EQ(G().gsPeriodo, QString());
    }
    EXPECT_TRUE(aperturas.isEmpty());
    EXPECT_TRUE(respondedor().mostrados.isEmpty());
}

TEST_F(ContAbrir, EliminarPreguntaYBorraSoloEsaDeclaracion)
{
    FrmContAbrir f = abrir(3);
    f.grdContrib_RowColChange(1);   // ANDINA 202608
    respondedor().respuestas = {vbNo, vbYes};
    f.CmdOpciones_Click(0);
    const MensajeMostrado& m = respondedor().mostrados.first();
    EXPECT_EQ(m.texto, QStringLiteral("¿Confirma que va a eliminar la declaración de\r\n\r\n") + kNombreAndina + QStringLiteral("?"));
    EXPECT_EQ(m.flags, 292);
    EXPECT_EQ(m.titulo, QStringLiteral("Eliminar Declaraciones"));
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("202608")), 4);

    f.CmdOpciones_Click(0);
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("202608")), 0);
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("202608"), QStringLiteral("0621")), 4);
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("202605")), 4);
    EXPECT_EQ(lista(f).size(), 3);
    EXPECT_EQ(f.fila, 1);

    // Down to an empty list, the cursor on the row that is last now; no error on the way.
    respondedor().respuestas = {vbYes, vbYes, vbYes};
    f.grdContrib_RowColChange(2);
    for (int i = 0; i < 3; ++i)
        f.CmdOpciones_Click(0);
    f.Form_Activate();
    EXPECT_TRUE(f.filas.isEmpty());
    EXPECT_EQ(f.fila, -1);
    EXPECT_EQ(respondedor().mostrados.size(), 5);
}

// A failure in the middle of a deletion deletes nothing and tells the engine's text.
TEST_F(ContAbrir, UnFalloAlEliminarNoBorraNada)
{
    ejecutar(QStringLiteral("CREATE TRIGGER no_borrar BEFORE DELETE ON CAB BEGIN SELECT RAISE(ABORT, 'cabecera protegida'); END"));
    FrmContAbrir f = abrir(3);
    respondedor().respuestas = {vbYes};
    f.CmdOpciones_Click(0);
    const MensajeMostrado& m = respondedor().mostrados.last();
    EXPECT_EQ(m.titulo, QStringLiteral("Error"));
    EXPECT_EQ(m.flags, 0);
    EXPECT_TRUE(m.texto.startsWith(QStringLiteral("cabecera protegida"))) << m.texto.toStdString();
    EXPECT_TRUE(m.texto.contains(QChar(10)));
    EXPECT_EQ(filas(kRucAndina, QStringLiteral("202605")), 4);
    EXPECT_EQ(lista(f).size(), 4);
}

}  // namespace
