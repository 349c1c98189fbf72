// Saving a declaration, opening it again, refusing it, failing in the middle, and leaving.
#include "grabacion_comun.h"

#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "store/funciones.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <QSqlRecord>
#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kRuc = DatosDemo::kRucAndina;
const QString kNombre = DatosDemo::kNombreAndina;
const QString kPeriodo = QStringLiteral("202608");   // balance at 31 July of the year of "today"
const QString kPeriodoAbril = QStringLiteral("202605");

// The form's surroundings, recording what the form asks of them.
class EntornoRegistro : public EntornoSinPantalla {
public:
    void pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario) override
    {
        barras << QStringList{ruc, nombre, periodo, formulario}.join(QLatin1Char('|'));
    }
    void mostrarContAbrir() override { ++pickerVisible; }
    void cerrarFormulario() override { ++cierres; }
    void abrirConsist() override { ++consist; }
    QStringList barras;
    int pickerVisible = 0, cierres = 0, consist = 0;
};

class Grabacion : public PruebaConBase {
protected:
    RespondedorGuion& respondedor() { return familia.respondedor(); }
    QString ultimo() const
    {
        return familia_const().mostrados.isEmpty() ? QString() : familia_const().mostrados.last().texto;
    }
    const RespondedorGuion& familia_const() const { return const_cast<FamiliaPrueba&>(familia).respondedor(); }
    const MensajeMostrado& ultimoMensaje() { return respondedor().mostrados.last(); }

    // Types and saves a new declaration; true when it was stored.
    bool grabarNueva(const EntradaDeclaracion& e)
    {
        EntornoRegistro entorno;
        Frm931 frm(&entorno);
        teclear(frm, entorno, e);
        frm.CmdGrabar_Click();
        return !frm.mbModificado;
    }
};

// ---------------------------------------------------------------------------- round trip

class IdaYVuelta : public Grabacion, public ::testing::WithParamInterface<const char*> {};

// Every box, answer and caption comes back as it was typed, under each regime. The loading
// rule has its own display for a few boxes, which the comparison knows: 150 comes back between
// parentheses, 462 and 464 as signed amounts, the tax typed under a stability agreement without
// separators, and a zero coefficient as "0"; each of them reads the same amount.
TEST_P(IdaYVuelta, LaDeclaracionReabiertaMuestraLoMismo)
{
    const QString regimen = QString::fromLatin1(GetParam());
    QMap<QString, QString> antes;
    {
        EntornoRegistro entorno;
        Frm931 frm(&entorno);
        teclear(frm, entorno, declaracionDeRegimen(regimen));
        frm.CmdGrabar_Click();
        ASSERT_FALSE(frm.mbModificado) << respondedor().textos().join(QLatin1Char('\n')).toStdString();
        antes = pantalla(frm);
    }
    const Filas guardadas = filasDet(kRuc, kPeriodo);
    ASSERT_FALSE(guardadas.isEmpty());

    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    abrirGuardada(frm, kRuc, kNombre, kPeriodo);
    QMap<QString, QString> despues = pantalla(frm);
    EXPECT_FALSE(frm.mbModificado);

    const QSet<QString> propias = {QStringLiteral("TxtValor(150)"), QStringLiteral("TxtValor(462)"),
                                   QStringLiteral("TxtValor(464)"), QStringLiteral("TxtValor(113)"),
                                   QStringLiteral("TxtValor(610)")};
    for (const QString& nombre : propias) {
        EXPECT_EQ(Abs(Val(Format(antes.value(nombre), QStringLiteral("###########0.0000")))),
                  Abs(Val(Format(despues.value(nombre), QStringLiteral("###########0.0000")))))
            << nombre.toStdString();
        despues[nombre] = antes.value(nombre);
    }
    // The name shows as the list line gives it in a new declaration.
    despues[QStringLiteral("TxtRazon")] = antes.value(QStringLiteral("TxtRazon"));
    EXPECT_EQ(Trim(antes.value(QStringLiteral("TxtRazon"))), kNombre);
    EXPECT_EQ(diferencias(antes, despues).join(QLatin1Char('\n')).toStdString(), "");

    // Saving it again untouched writes the same rows, but for the box the loading rule shows
    // between parentheses (150), which goes back negative, and the name, which the stored
    // form shows without the blanks that the list line of a new one puts before it.
    frm.CmdGrabar_Click();
    ASSERT_FALSE(frm.mbModificado);
    Filas otra = filasDet(kRuc, kPeriodo);
    for (auto& [casilla, valor] : otra) {
        if (casilla == QLatin1String("150")) {
            EXPECT_EQ(valor, QStringLiteral("-2000"));
            valor = valor.mid(1);
        } else if (casilla == QLatin1String("801")) {
            EXPECT_EQ(valor, Left(kNombre, 15));
            valor = Trim(Left(QStringLiteral("   ") + kNombre, 15));
        }
    }
    EXPECT_EQ(diferenciasDet(guardadas, otra), "");
}

INSTANTIATE_TEST_SUITE_P(Regimenes, IdaYVuelta, ::testing::Values("4", "1", "2", "3", "6", "8"));

// ---------------------------------------------------------------------------- what is written

TEST_F(Grabacion, EscribeCabeceraYFilasEnElOrdenDeLaDeclaracion)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen(QStringLiteral("2"))));
    const Filas det = filasDet(kRuc, kPeriodo);
    QStringList orden;
    for (const auto& [casilla, valor] : det)
        orden << casilla;
    // The boxes first, in their order (500 ... 651), then the items without a box.
    const int primeraSinCaja = static_cast<int>(orden.indexOf(QStringLiteral("002")));
    ASSERT_GT(primeraSinCaja, 0);
    EXPECT_EQ(orden.first(), QStringLiteral("500"));
    EXPECT_EQ(orden.mid(primeraSinCaja).join(QLatin1Char(' ')).toStdString(),
              "002 007 801 028 809 860 811 812 056 605 606 607 608 609 611 612 613 662 721 815 816 817 818");

    const QMap<QString, QString> m = mapaDet(kRuc, kPeriodo);
    EXPECT_EQ(m.value(QStringLiteral("002")), kRuc);
    EXPECT_EQ(m.value(QStringLiteral("007")), kPeriodo);
    // The name as the new form shows it (the list line puts three blanks before it), cut to 15.
    EXPECT_EQ(m.value(QStringLiteral("801")), Trim(Left(QStringLiteral("   ") + kNombre, 15)));
    EXPECT_EQ(m.value(QStringLiteral("056")), QStringLiteral("2"));
    EXPECT_EQ(m.value(QStringLiteral("609")), QStringLiteral("0"));
    EXPECT_EQ(m.value(QStringLiteral("662")), QStringLiteral("0"));
    EXPECT_EQ(m.value(QStringLiteral("721")), QStringLiteral("1.6"));
    EXPECT_EQ(m.value(QStringLiteral("462")), QStringLiteral("-15000"));   // subtractive: negative
    EXPECT_EQ(m.value(QStringLiteral("467")), QStringLiteral("0"));        // a "0" keeps its row
    EXPECT_FALSE(m.contains(QStringLiteral("553")));                        // an empty box has none
    EXPECT_FALSE(m.contains(QStringLiteral("813")));                        // not this regime's

    QSqlQuery cab = ejecutar(QStringLiteral("SELECT * FROM CAB WHERE DOC_ID_D=? AND PERIODO=?"), {kRuc, kPeriodo});
    ASSERT_TRUE(cab.next());
    const QSqlRecord r = cab.record();
    EXPECT_EQ(r.value(QStringLiteral("TIP_DOC_D")).toInt(), 6);
    EXPECT_EQ(r.value(QStringLiteral("FORMULARIO")).toString(), QStringLiteral("0931"));
    EXPECT_EQ(r.value(QStringLiteral("FEC_PRO")).toString(), QStringLiteral("22/11/2026"));
    EXPECT_EQ(r.value(QStringLiteral("RECTIFICA")).toString(), QString());
    EXPECT_EQ(r.value(QStringLiteral("cNumero")).toString(), CodigoFila(r, 5));
    EXPECT_FALSE(cab.next());

    QSqlQuery filas = ejecutar(QStringLiteral("SELECT * FROM DET"));
    while (filas.next())
        EXPECT_EQ(filas.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(filas.record(), 6));
}

struct CasoEstado {
    bool consistente;
    int estado;
    int flags;
    const char* mensaje;
};

class EstadoGrabado : public Grabacion, public ::testing::WithParamInterface<CasoEstado> {};

TEST_P(EstadoGrabado, ElEstadoYElAvisoSiguenALaValidacion)
{
    const CasoEstado& c = GetParam();
    EntradaDeclaracion e = declaracionConsistente();
    if (!c.consistente)
        e.casillas[QStringLiteral("532")] = QStringLiteral("401");   // assets differ from liabilities + equity
    ASSERT_TRUE(grabarNueva(e));
    const QString periodo = kPeriodoAbril;
    EXPECT_EQ(escalar(QStringLiteral("SELECT ESTADO FROM CAB WHERE DOC_ID_D=? AND PERIODO=?"), {kRuc, periodo}).toInt(),
              c.estado);
    EXPECT_FALSE(filasDet(kRuc, periodo).isEmpty());
    EXPECT_EQ(ultimoMensaje().texto.toStdString(), c.mensaje);
    EXPECT_EQ(ultimoMensaje().flags, c.flags);
    EXPECT_EQ(G().giEstadoGrabado, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Estados, EstadoGrabado,
    ::testing::Values(CasoEstado{true, 0, vbInformation, "La información de la declaración fue grabada satisfactoriamente."},
                      CasoEstado{false, 9, vbExclamation,
                                 "La información de la declaración fue grabada con inconsistencias. En estas "
                                 "condiciones no podra ser enviada a TAVEN."}));

TEST_F(Grabacion, TrasLaPrimeraGrabacionLaNuevaSeGuardaEnSuSitio)
{
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    teclear(frm, entorno, declaracionCompleta());
    frm.CmdGrabar_Click();
    ASSERT_FALSE(frm.mbModificado);
    // The payment block and the taxpayer are fixed now, as for a stored declaration.
    EXPECT_FALSE(frm.OptInicio.b[0].Enabled);
    EXPECT_FALSE(frm.OptAnterior.b[1].Enabled);
    EXPECT_FALSE(frm.CboBalance.Enabled);
    EXPECT_EQ(frm.CboBalance.BackColor, kGris);
    EXPECT_FALSE(frm.CmbRuc.Visible);
    EXPECT_TRUE(frm.TxtNumRuc.Visible);
    EXPECT_EQ(frm.TxtNumRuc.Text, kRuc);
    EXPECT_EQ(frm.msRuc, kRuc);
    EXPECT_EQ(frm.miModo, 0);
    EXPECT_TRUE(frm.marco(QStringLiteral("FrameSusPC")).Enabled);
    EXPECT_EQ(entorno.barras.last(), QStringList({kRuc, Trim(frm.TxtRazon.Text), kPeriodo, QStringLiteral("0931")}).join(QLatin1Char('|')));

    // Saved again in place, a day later: no "already exists", a new date and new codes.
    const QString codigoAntes = escalar(QStringLiteral("SELECT cNumero FROM CAB")).toString();
    fijarHoy(QDate(2026, 11, 25));
    frm.darFocoCasilla(500);
    frm.teclear(500, QStringLiteral("9"));
    frm.darFoco(QStringLiteral("CmdGrabar"));
    frm.CmdGrabar_Click();
    fijarHoy(QDate());
    EXPECT_FALSE(frm.mbModificado) << ultimo().toStdString();
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM CAB")).toInt(), 1);
    EXPECT_EQ(escalar(QStringLiteral("SELECT FEC_PRO FROM CAB")).toString(), QStringLiteral("25/11/2026"));
    EXPECT_NE(escalar(QStringLiteral("SELECT cNumero FROM CAB")).toString(), codigoAntes);
    EXPECT_EQ(mapaDet(kRuc, kPeriodo).value(QStringLiteral("500")), QStringLiteral("10009"));
}

TEST_F(Grabacion, OtroRegimenNoDejaFilasDelAnterior)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen(QStringLiteral("2"))));
    ASSERT_TRUE(mapaDet(kRuc, kPeriodo).contains(QStringLiteral("809")));

    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    abrirGuardada(frm, kRuc, kNombre, kPeriodo);
    respondedor().respuestas = {vbYes};   // "Va a cambiar de Régimen Tributario ..."
    frm.marcar(frm.optRenta, 0);
    frm.marcar(frm.OptPersona, 1);
    frm.CmdGrabar_Click();
    ASSERT_FALSE(frm.mbModificado) << ultimo().toStdString();

    const QMap<QString, QString> m = mapaDet(kRuc, kPeriodo);
    for (const char* amazonia : {"809", "810", "860", "811", "812"})
        EXPECT_FALSE(m.contains(QString::fromLatin1(amazonia))) << amazonia;
    EXPECT_EQ(m.value(QStringLiteral("056")), QStringLiteral("4"));
    EXPECT_EQ(m.value(QStringLiteral("813")), QStringLiteral("1"));
    EXPECT_FALSE(frm.OptUbicAmazonia.contestado());
}

TEST_F(Grabacion, SinPerdidaDeclaradaSeBorranLasFilasDePerdidas)
{
    ASSERT_TRUE(grabarNueva(declaracionCompleta()));
    ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe, cNumero)"
                            " VALUES (6, ?, ?, '0931', '2024', '500', '000000')"),
             {kRuc, kPeriodo});
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    abrirGuardada(frm, kRuc, kNombre, kPeriodo);
    frm.CmdGrabar_Click();
    ASSERT_FALSE(frm.mbModificado);
    EXPECT_EQ(contar(QStringLiteral("F0931_PTCEA"), kRuc, kPeriodo), 0);
    // The count was taken before: the saved declaration says one row.
    EXPECT_EQ(mapaDet(kRuc, kPeriodo).value(QStringLiteral("662")), QStringLiteral("1"));
}

// ---------------------------------------------------------------------------- refused saves

struct CasoRechazo {
    const char* nombre;
    std::function<void(EntradaDeclaracion&)> cambio;
    const char* mensaje;
    int pestana1;   // SSTab1 after the refusal
    int pestana2;   // SSTab2 after the refusal; -1 don't care
};

void PrintTo(const CasoRechazo& c, std::ostream* os) { *os << c.nombre; }

class Rechazo : public Grabacion, public ::testing::WithParamInterface<CasoRechazo> {};

// A refused save shows its message on the page of the control at fault and leaves every box
// and the store as they were.
TEST_P(Rechazo, NoGrabaNadaYNoTocaLaPantalla)
{
    const CasoRechazo& c = GetParam();
    EntradaDeclaracion e = declaracionCompleta();
    c.cambio(e);
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    teclear(frm, entorno, e);
    const auto antes = pantalla(frm);
    frm.CmdGrabar_Click();
    EXPECT_EQ(ultimo().toStdString(), c.mensaje);
    EXPECT_EQ(ultimoMensaje().flags, vbCritical);
    EXPECT_EQ(ultimoMensaje().titulo, frm.Caption);
    EXPECT_EQ(frm.SSTab1.Tab, c.pestana1);
    if (c.pestana2 >= 0)
        EXPECT_EQ(frm.SSTab2.Tab, c.pestana2);
    EXPECT_TRUE(frm.mbModificado);
    EXPECT_EQ(diferencias(antes, pantalla(frm)).join(QLatin1Char('\n')).toStdString(), "");
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM CAB")).toInt(), 0);
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM DET")).toInt(), 0);
}

void sin(EntradaDeclaracion& e, const char* casilla) { e.casillas.remove(QString::fromLatin1(casilla)); }
void con(EntradaDeclaracion& e, const char* casilla, const char* valor)
{
    e.casillas[QString::fromLatin1(casilla)] = QString::fromUtf8(valor);
}

INSTANTIATE_TEST_SUITE_P(
    Comprobaciones, Rechazo,
    ::testing::Values(
        CasoRechazo{"SinRegimen", [](auto& e) { sin(e, "056"); }, "Debe señalar el regimen de renta", 0, 0},
        CasoRechazo{"SinInicio", [](auto& e) { for (const char* c : {"605", "606", "607", "608", "611", "612", "613"}) sin(e, c); },
                    "Señale el inicio de actividades en el ejercicio", 0, 2},
        CasoRechazo{"SinAnterior", [](auto& e) { sin(e, "607"); },
                    "Indique si obtuvo utilidad o pérdida en el Ejercicio anterior", 0, 2},
        CasoRechazo{"SinPrecedente", [](auto& e) { sin(e, "606"); },
                    "Indique si obtuvo utilidad o pérdida en el Ejercicio precedente al anterior", 0, 2},
        CasoRechazo{"SinFechaDeBalance", [](auto& e) { sin(e, "608"); sin(e, "611"); sin(e, "612"); sin(e, "613"); },
                    "Seleccione el mes al que debe corresponder la presentación del balance", 0, 2},
        CasoRechazo{"ResolucionVacia", [](auto& e) { sin(e, "612"); },
                    "El ingreso de los datos de la Resolución y Fecha de Notificación son campos obligatorios", 0, 2},
        CasoRechazo{"NotificacionVacia", [](auto& e) { sin(e, "613"); },
                    "El ingreso de los datos de la Resolución y Fecha de Notificación son campos obligatorios", 0, 2},
        CasoRechazo{"ResolucionCorta", [](auto& e) { con(e, "612", "123456789012"); },
                    "Número de Resolución incompleto", 0, 2},
        CasoRechazo{"ResolucionCeros", [](auto& e) { con(e, "612", "0000000000000"); },
                    "Debe ingresar un Número de Resolución", 0, 2},
        CasoRechazo{"NotificacionImposible", [](auto& e) { con(e, "613", "31/02/2024"); },
                    "La fecha de notificación no es válida", 0, 2},
        CasoRechazo{"NotificacionAntigua", [](auto& e) { con(e, "613", "21/03/2013"); },
                    "La fecha de notificación no puede ser anterior al 22/03/2013 ni mayor a la fecha del sistema", 0, 2},
        CasoRechazo{"NotificacionFutura", [](auto& e) { con(e, "613", "23/11/2026"); },
                    "La fecha de notificación no puede ser anterior al 22/03/2013 ni mayor a la fecha del sistema", 0, 2},
        CasoRechazo{"AgrarioDeOtroAnio", [](auto& e) { con(e, "056", "1"); con(e, "200", "20250310"); },
                    "El año de la fecha del formulario 4888 debe corresponder al año de la presentación", 0, -1},
        CasoRechazo{"AgrarioFuturo", [](auto& e) { con(e, "056", "1"); con(e, "200", "20261201"); },
                    "La fecha de presentación del formulario 4888 no puede ser mayor a la fecha del sistema", 0, -1},
        CasoRechazo{"RucDelContadorErrado", [](auto& e) { con(e, "208", "20500004560"); }, "El RUC no es Válido.", 3, -1},
        CasoRechazo{"RucDelContadorPropio", [](auto& e) { con(e, "208", "20100001234"); },
                    "El RUC no puede ser igual al RUC del Contribuyente.", 3, -1},
        CasoRechazo{"RucDelRepresentante", [](auto& e) { con(e, "225", "06"); con(e, "226", "20500004560"); },
                    "El RUC no es Válido.", 3, -1}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST_F(Grabacion, UnaNuevaQueYaExisteNoSeGraba)
{
    ASSERT_TRUE(grabarNueva(declaracionCompleta()));
    const QStringList cab = volcado(QStringLiteral("CAB"), kRuc, kPeriodo);
    const QStringList det = volcado(QStringLiteral("DET"), kRuc, kPeriodo);
    fijarHoy(QDate(2026, 11, 23));
    EntradaDeclaracion otra = declaracionCompleta();
    otra.casillas[QStringLiteral("500")] = QStringLiteral("1");
    EXPECT_FALSE(grabarNueva(otra));
    fijarHoy(QDate());
    EXPECT_EQ(ultimo(), QStringLiteral("La declaración que desea registrar ya existe ") + kRuc
                            + QStringLiteral(". Elija la opción modificar declaración o elija otro contribuyente."));
    EXPECT_EQ(volcado(QStringLiteral("CAB"), kRuc, kPeriodo), cab);
    EXPECT_EQ(volcado(QStringLiteral("DET"), kRuc, kPeriodo), det);
}

// A stored declaration of June 2013 can't be saved under the later rules: nothing changes.
TEST_F(Grabacion, ElPeriodoDeJunio2013NoSeGraba)
{
    const QString periodo = QStringLiteral("201306");
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, FEC_PRO, ESTADO, cNumero)"
                            " VALUES (6, ?, ?, '0931', '01/07/2013', 0, '123456')"),
             {kRuc, periodo});
    const QList<QPair<const char*, const char*>> filas = {{"500", "1000"}, {"056", "4"}, {"813", "0"}, {"605", "0"},
                                                          {"606", "0"}, {"607", "0"}, {"608", "1"}, {"028", "4445566"}};
    for (const auto& [casilla, valor] : filas)
        ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR, idcasilla, cNumero)"
                                " VALUES (6, ?, ?, '0931', ?, ?, '01', '000000')"),
                 {kRuc, periodo, QString::fromLatin1(casilla), QString::fromLatin1(valor)});
    const QStringList cab = volcado(QStringLiteral("CAB"), kRuc, periodo);
    const QStringList det = volcado(QStringLiteral("DET"), kRuc, periodo);

    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    abrirGuardada(frm, kRuc, kNombre, periodo);
    EXPECT_EQ(frm.txt(500), QStringLiteral("1,000"));
    frm.darFocoCasilla(500);
    frm.teclear(500, QStringLiteral("5"));
    frm.darFoco(QStringLiteral("CmdGrabar"));
    const auto antes = pantalla(frm);
    frm.CmdGrabar_Click();
    EXPECT_EQ(ultimo(), QStringLiteral("El período no es válido"));
    EXPECT_EQ(ultimoMensaje().flags, vbCritical);
    EXPECT_TRUE(frm.mbModificado);
    EXPECT_EQ(diferencias(antes, pantalla(frm)).join(QLatin1Char('\n')).toStdString(), "");
    EXPECT_EQ(volcado(QStringLiteral("CAB"), kRuc, periodo), cab);
    EXPECT_EQ(volcado(QStringLiteral("DET"), kRuc, periodo), det);
}

// ---------------------------------------------------------------------------- failing saves

// A failure of the store in the middle of a save (here a trigger that refuses one casilla,
// after the header and a good part of the rows were written) leaves the stored declaration
// as it was, tells the engine's text and keeps the work on screen unsaved.
TEST_F(Grabacion, UnFalloAMitadDejaLaDeclaracionAnteriorEntera)
{
    ASSERT_TRUE(grabarNueva(declaracionCompleta()));
    const QStringList cab = volcado(QStringLiteral("CAB"), kRuc, kPeriodo);
    const QStringList det = volcado(QStringLiteral("DET"), kRuc, kPeriodo);
    ejecutar(QStringLiteral("CREATE TRIGGER fallo_forzado BEFORE INSERT ON DET WHEN NEW.CASILLA = '461'"
                            " BEGIN SELECT RAISE(ABORT, 'fallo forzado'); END"));

    fijarHoy(QDate(2026, 11, 24));
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    abrirGuardada(frm, kRuc, kNombre, kPeriodo);
    frm.darFocoCasilla(500);
    frm.teclear(500, QStringLiteral("7"));
    frm.darFoco(QStringLiteral("CmdGrabar"));
    G().giEstadoGrabado = 2;
    frm.CmdGrabar_Click();
    fijarHoy(QDate());

    const MensajeMostrado& m = ultimoMensaje();
    EXPECT_EQ(m.titulo, QStringLiteral("Error"));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^.*fallo forzado.*\\n -?\\d+$"),
                                   QRegularExpression::DotMatchesEverythingOption)
                    .match(m.texto)
                    .hasMatch())
        << m.texto.toStdString();
    EXPECT_TRUE(frm.mbModificado);
    EXPECT_EQ(G().giEstadoGrabado, 2);
    EXPECT_EQ(volcado(QStringLiteral("CAB"), kRuc, kPeriodo), cab);
    EXPECT_EQ(volcado(QStringLiteral("DET"), kRuc, kPeriodo), det);

    // Once the store accepts it again the same form saves it whole.
    ejecutar(QStringLiteral("DROP TRIGGER fallo_forzado"));
    frm.CmdGrabar_Click();
    EXPECT_FALSE(frm.mbModificado) << ultimo().toStdString();
    EXPECT_EQ(mapaDet(kRuc, kPeriodo).value(QStringLiteral("500")), QStringLiteral("10007"));
    EXPECT_EQ(filasDet(kRuc, kPeriodo).size(), det.size());
}

TEST_F(Grabacion, UnFalloEnLaPrimeraGrabacionNoDejaCabecera)
{
    ejecutar(QStringLiteral("CREATE TRIGGER fallo_forzado BEFORE INSERT ON DET WHEN NEW.CASILLA = '818'"
                            " BEGIN SELECT RAISE(ABORT, 'fallo forzado'); END"));
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    teclear(frm, entorno, declaracionCompleta());
    frm.CmdGrabar_Click();
    EXPECT_EQ(ultimoMensaje().titulo, QStringLiteral("Error"));
    EXPECT_TRUE(frm.mbModificado);
    EXPECT_TRUE(frm.CmbRuc.Visible);         // still a new declaration
    EXPECT_TRUE(frm.msRuc.isEmpty());
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM CAB")).toInt(), 0);
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM DET")).toInt(), 0);
}

// ---------------------------------------------------------------------------- leaving

struct CasoSalida {
    const char* nombre;
    bool modificado;
    int respuesta;          // to the question, 0 when none is asked
    bool cierra;
    bool graba;
};

void PrintTo(const CasoSalida& c, std::ostream* os) { *os << c.nombre; }

class Salida : public Grabacion, public ::testing::WithParamInterface<CasoSalida> {};

TEST_P(Salida, PreguntaSoloSiHayCambios)
{
    const CasoSalida& c = GetParam();
    ASSERT_TRUE(grabarNueva(declaracionCompleta()));
    const QStringList det = volcado(QStringLiteral("DET"), kRuc, kPeriodo);
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    abrirGuardada(frm, kRuc, kNombre, kPeriodo);
    if (c.modificado) {
        frm.darFocoCasilla(500);
        frm.teclear(500, QStringLiteral("3"));
        frm.darFoco(QStringLiteral("CmdGrabar"));
    }
    const int antes = static_cast<int>(respondedor().mostrados.size());
    if (c.respuesta)
        respondedor().respuestas = {c.respuesta};
    frm.cmdCancelar_Click();

    const auto nuevos = respondedor().mostrados.mid(antes);
    if (c.respuesta) {
        ASSERT_FALSE(nuevos.isEmpty());
        EXPECT_EQ(nuevos.first().texto, QStringLiteral("¿El formulario ha sido modificado, desea guardar los cambios?"));
        EXPECT_EQ(nuevos.first().flags, vbYesNoCancel + vbQuestion);
    } else {
        EXPECT_TRUE(nuevos.isEmpty());
    }
    EXPECT_EQ(frm.cerrado, c.cierra);
    EXPECT_EQ(entorno.cierres, c.cierra ? 1 : 0);
    EXPECT_EQ(entorno.pickerVisible, c.cierra ? 1 : 0);   // modify mode: the picker shows again
    EXPECT_EQ(G().giEstadoGrabado, c.graba ? 1 : 3);
    if (c.graba)
        EXPECT_EQ(mapaDet(kRuc, kPeriodo).value(QStringLiteral("500")), QStringLiteral("10003"));
    else
        EXPECT_EQ(volcado(QStringLiteral("DET"), kRuc, kPeriodo), det);
}

INSTANTIATE_TEST_SUITE_P(Preguntas, Salida,
                         ::testing::Values(CasoSalida{"SinCambios", false, 0, true, false},
                                           CasoSalida{"Cancelar", true, vbCancel, false, false},
                                           CasoSalida{"No", true, vbNo, true, false},
                                           CasoSalida{"Si", true, vbYes, true, true}),
                         [](const auto& info) { return std::string(info.param.nombre); });

TEST_F(Grabacion, SalirDeUnaNuevaBorraUnaGrabacionRota)
{
    EntornoRegistro entorno;
    Frm931 frm(&entorno);
    teclear(frm, entorno, declaracionCompleta());
    // Another program of the family left a header without its check code, and its rows.
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, cNumero) VALUES (6, ?, ?, '0931', '0')"),
             {kRuc, kPeriodo});
    for (const char* tabla : {"DET", "ACTA"})
        ejecutar(QStringLiteral("INSERT INTO ") + QLatin1String(tabla)
                     + QStringLiteral(" (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, cNumero) VALUES (6, ?, ?, '0931', '0')")
                     .replace(QStringLiteral("FORMULARIO, cNumero"), tabla == QLatin1String("DET") ? QStringLiteral("FORMULARIO, CASILLA, cNumero") : QStringLiteral("FORMULARIO, cNumero"))
                     .replace(QStringLiteral("'0931', '0'"), tabla == QLatin1String("DET") ? QStringLiteral("'0931', '500', '0'") : QStringLiteral("'0931', '0'")),
                 {kRuc, kPeriodo});
    // A sound declaration of another taxpayer stays.
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, cNumero) VALUES (6, ?, ?, '0931', '123456')"),
             {DatosDemo::kRucPacifico, kPeriodo});
    respondedor().respuestas = {vbNo};
    frm.cmdCancelar_Click();
    EXPECT_TRUE(frm.cerrado);
    for (const char* tabla : {"CAB", "DET", "ACTA"})
        EXPECT_EQ(contar(QString::fromLatin1(tabla), kRuc, kPeriodo), 0) << tabla;
    EXPECT_EQ(contar(QStringLiteral("CAB"), DatosDemo::kRucPacifico, kPeriodo), 1);
    EXPECT_EQ(entorno.barras.last(), QStringLiteral("|||0931"));
    EXPECT_EQ(entorno.pickerVisible, 0);   // a new declaration: no picker behind
}

// ---------------------------------------------------------------------------- validating

TEST_F(Grabacion, ValidarSinInconsistenciasAvisaYSinContribuyenteSeNiega)
{
    {
        EntornoRegistro entorno;
        Frm931 frm(&entorno);
        teclear(frm, entorno, declaracionConsistente());
        frm.CmdValidar_Click();
        EXPECT_EQ(ultimo(), QStringLiteral("La información de la declaración no presenta inconsistencias."));
        EXPECT_EQ(ultimoMensaje().flags, vbExclamation);
        EXPECT_EQ(G().giEstadoGrabado, 2);
        EXPECT_EQ(entorno.consist, 0);
    }
    {
        EntornoRegistro entorno;
        Frm931 frm(&entorno);
        teclear(frm, entorno, declaracionCompleta());
        frm.CmdValidar_Click();
        EXPECT_EQ(entorno.consist, 1);   // the viewer of the message file
    }
    {
        G().gsPeriodo = QStringLiteral("2026");
        EntornoRegistro entorno;
        Frm931 frm(&entorno);
        frm.Form_Load();
        frm.SSTab1.Tab = 2;
        frm.CmdValidar_Click();
        EXPECT_EQ(ultimo(), QStringLiteral("Debe seleccionar un Contribuyente."));
        EXPECT_EQ(frm.SSTab1.Tab, 0);
        EXPECT_EQ(entorno.consist, 0);
    }
}

// ---------------------------------------------------------------------------- order number

class NumeroDeOrden : public Grabacion {
protected:
    const QString control = QStringLiteral("0012345678");

    void SetUp() override
    {
        for (const char* correl : {"1", "2"})
            ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, FEC_PRO, ESTADO,"
                                    " CONTROL, cNumero) VALUES (6, ?, ?, '0931', ?, '01/09/2026', 1, ?, '000000')"),
                     {kRuc, kPeriodo, QString::fromLatin1(correl), control});
        const QList<QPair<const char*, const char*>> filas = {{"500", "1000"}, {"056", "4"}, {"813", "0"}, {"605", "0"},
                                                              {"606", "0"}, {"607", "0"}, {"608", "1"}, {"028", "4445566"}};
        for (const auto& [casilla, valor] : filas)
            ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CASILLA, I_VALOR,"
                                    " cNumero) VALUES (6, ?, ?, '0931', '1', ?, ?, '000000')"),
                     {kRuc, kPeriodo, QString::fromLatin1(casilla), QString::fromLatin1(valor)});
        Globales& g = G();
        g.gbEnviada = true;
        g.giOpcion = 2;
        g.gsRuc = kRuc;
        g.gsPeriodo = kPeriodo;
        g.gsCorrel = QStringLiteral("1");
        g.gsControl = control;
        frm.miModo = 1;
        frm.msRuc = kRuc;
        frm.msRazon = kNombre;
        frm.Form_Load();
    }

    QString norden(const char* correl)
    {
        return escalar(QStringLiteral("SELECT NORDEN FROM HCAB WHERE CORREL=?"), {QString::fromLatin1(correl)}).toString();
    }

    EntornoRegistro entorno;
    Frm931 frm{&entorno};
};

TEST_F(NumeroDeOrden, LaDeclaracionEnviadaSoloSeMuestra)
{
    EXPECT_EQ(frm.txt(500), QStringLiteral("1,000"));
    EXPECT_EQ(frm.CmdGrabar.Caption, QStringLiteral("&Registrar Nro. Orden"));
    EXPECT_FALSE(frm.CmdValidar.Visible);
    EXPECT_FALSE(frm.caja(461).Enabled);
    EXPECT_EQ(frm.caja(461).BackColor, kGris);
    EXPECT_FALSE(frm.marco(QStringLiteral("Frame26")).Enabled);
    EXPECT_FALSE(frm.cmdPerdida[0].Enabled);
    EXPECT_TRUE(frm.txtOrden.Visible);
}

TEST_F(NumeroDeOrden, RegistraSoloUnNumeroValidoYSoloEnSuCopia)
{
    const QString bueno = QStringLiteral("123456789");
    const QString digitos = DigitoVerificador(control, bueno);
    const QList<QPair<QString, QString>> rechazos = {
        {QStringLiteral("1234567"), QStringLiteral("     El número de orden no es válido")},
        {QStringLiteral("12345678901"), QStringLiteral("     El número de orden no es válido")},
        {bueno, QStringLiteral("     El digito Verificador es incorrecto")}};
    for (const auto& [orden, mensaje] : rechazos) {
        frm.txtOrden.Text = orden;
        frm.txtverifica.Text = digitos == QLatin1String("00") ? QStringLiteral("11") : QStringLiteral("00");
        frm.CmdGrabar_Click();
        EXPECT_EQ(ultimo(), mensaje) << orden.toStdString();
        EXPECT_EQ(ultimoMensaje().flags, vbCritical);
        EXPECT_FALSE(frm.cerrado);
        EXPECT_EQ(norden("1"), QString());
    }
    frm.txtOrden.Text = bueno;
    frm.txtverifica.Text = digitos;
    frm.CmdGrabar_Click();
    EXPECT_EQ(ultimo(), QStringLiteral("El número de orden y el digito verificador fueron grabados satisfactoriamente."));
    EXPECT_EQ(ultimoMensaje().flags, vbExclamation);
    EXPECT_TRUE(frm.cerrado);
    EXPECT_EQ(norden("1"), bueno);
    EXPECT_EQ(norden("2"), QString());
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM HCAB WHERE CORREL='1'"));
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(q.record(), 6));
    // Nothing of the working tables is written.
    EXPECT_EQ(escalar(QStringLiteral("SELECT count(*) FROM CAB")).toInt(), 0);
}

TEST_F(NumeroDeOrden, AlSalirPreguntaPorElNumeroCambiado)
{
    frm.txtOrden.Text = QStringLiteral("1234567");
    frm.mbModificado = true;
    respondedor().respuestas = {vbYes};
    frm.cmdCancelar_Click();
    EXPECT_EQ(respondedor().mostrados.at(respondedor().mostrados.size() - 2).texto,
              QStringLiteral(" El número de orden ha cambiado. ¿Desea guardar los cambios?"));
    EXPECT_EQ(ultimo(), QStringLiteral("El número de orden es incorrecto"));
    EXPECT_FALSE(frm.cerrado);

    frm.txtOrden.Text = QStringLiteral("87654321");
    frm.txtverifica.Text = DigitoVerificador(control, frm.txtOrden.Text);
    respondedor().respuestas = {vbYes};
    frm.cmdCancelar_Click();
    EXPECT_TRUE(frm.cerrado);
    EXPECT_EQ(norden("1"), QStringLiteral("87654321"));
}

}  // namespace
