// Saving a declaration, opening it again, refusing it, failing in the middle, and leaving.
#include "grabacion_comun.h"

#include "basic/formato.h"
#include "basic/msgbox.h"
#include "basic/reloj.h"
#include "basic/texto.h"
#include "store/funciones.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kRuc = DatosDemo::kRucAndina;
const QString kPeriodo = QStringLiteral("202608");   // balance at 31 July of the year of "today"

// The form's surroundings, recording what the form asks of them.
class EntornoRegistro : public EntornoSinPantalla {
public:
    void pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo, const QString& formulario) override
    {
        barras << QStringList{ruc, nombre, periodo, formulario}.join(QLatin1Char('|'));
    }
    void mostrarContAbrir() override { ++pickerVisible; }
    void cerrarFormulario() override { ++cierres; }
    QStringList barras;
    int pickerVisible = 0, cierres = 0;
};

class Grabacion : public PruebaConBase {
protected:
    RespondedorGuion& respondedor() { return familia.respondedor(); }
    const MensajeMostrado& ultimo() { return respondedor().mostrados.last(); }

    // Types a new declaration into `frm` and presses "&Grabar"; true when it was stored.
    bool grabarNueva(const EntradaDeclaracion& e)
    {
        reproducirEntrada(frm, entorno, e);
        frm.CmdGrabar_Click();
        return !frm.mbModificado;
    }

    // The stored declaration opened again, with a figure typed into c500.
    void abrirYCambiar(Frm931& f)
    {
        abrirGuardada(f, kPeriodo);
        f.darFocoCasilla(500);
        f.teclear(500, QStringLiteral("7"));
        f.darFoco(QStringLiteral("CmdGrabar"));
    }

    EntornoRegistro entorno;
    Frm931 frm{&entorno};
};

// ---------------------------------------------------------------------------- round trip

// A regime with other answers of its own page over those of declaracionDeRegimen ("-" takes
// an item out).
struct Variante {
    const char* regimen;
    const char* respuestas;
    const char* nombre;
};
void PrintTo(const Variante& v, std::ostream* os) { *os << v.nombre; }

const Variante kVariantes[] = {
    {"4", "", "General"},
    {"4", "813=1 605=1 606=- 607=- 611=0 612=- 613=-", "GeneralNaturalQueIniciaSinSuspension"},
    {"8", "", "Mype"},
    {"1", "", "Agrario"},
    {"2", "", "AmazoniaUbicadaZona2"},
    {"2", "809=0 810=0 860=- 811=- 812=-", "AmazoniaNiUbicadaNiLey"},
    {"2", "809=- 810=1 860=0 811=- 812=-", "AmazoniaPorLeySinDomicilio"},
    {"3", "", "Frontera"},
    {"3", "601=1 602=0 603=-", "FronteraSinZona"},
    {"3", "601=0 602=- 603=-", "FronteraSinActividad"},
    {"6", "", "Convenio"}};

// Variant, year of "today" and the answer to "Declaración rectificatoria" ("" for none).
using CasoIda = std::tuple<Variante, int, const char*>;
class IdaYVuelta : public Grabacion, public ::testing::WithParamInterface<CasoIda> {
protected:
    void TearDown() override { fijarHoy(QDate()); }
};

// Every box, answer and caption comes back as it was typed, under each regime, before and from
// 2013, but for what the loading rule shows its own way (462 and 464 signed, the typed tax
// without separators, a zero coefficient as "0", the name without the list's blanks): those
// read the same amount. Saved again untouched, the header and every row are written as before.
TEST_P(IdaYVuelta, LaDeclaracionReabiertaMuestraLoMismoYSeGrabaIgual)
{
    const auto& [variante, anio, rectifica] = GetParam();
    fijarHoy(QDate(anio, 11, 22));
    EntradaDeclaracion e = declaracionDeRegimen(QString::fromLatin1(variante.regimen));
    for (const auto& [codigo, valor] : entrada(QString::fromLatin1(variante.respuestas)).casillas.asKeyValueRange()) {
        if (valor == QLatin1String("-"))
            e.casillas.remove(codigo);
        else
            e.casillas.insert(codigo, valor);
    }
    if (anio < 2013) {
        // No suspension of the payments before 2013; the agrarian date is of the year declared.
        for (const char* c : {"611", "612", "613"})
            e.casillas.remove(QString::fromLatin1(c));
        if (e.casillas.contains(QStringLiteral("200")))
            e.casillas[QStringLiteral("200")] = QString::number(anio) + QStringLiteral("0310");
    }
    // The balance of the second month: 30 June before 2013, 31 July from then on.
    const QString periodo = QString::number(anio) + (anio < 2013 ? QStringLiteral("06") : QStringLiteral("08"));
    reproducirEntrada(frm, entorno, e);
    if (const QString r = QString::fromLatin1(rectifica); !r.isEmpty())
        frm.marcar(frm.OptRectifica, r.toInt());
    frm.CmdGrabar_Click();
    ASSERT_FALSE(frm.mbModificado) << ultimo().texto.toStdString();
    QMap<QString, QString> antes = pantalla(frm);
    const QStringList cab = volcado(QStringLiteral("CAB"), periodo), det = volcado(QStringLiteral("DET"), periodo);
    ASSERT_EQ(cab.size(), 1);
    EXPECT_EQ(escalar(QStringLiteral("SELECT RECTIFICA FROM CAB")).toString(), QString::fromLatin1(rectifica));

    Frm931 otra(&entorno);
    abrirGuardada(otra, periodo);
    QMap<QString, QString> despues = pantalla(otra);
    EXPECT_FALSE(otra.mbModificado);
    for (const char* n : {"TxtValor(462)", "TxtValor(464)", "TxtValor(113)", "TxtValor(610)"}) {
        const QString nombre = QString::fromLatin1(n);
        const auto leer = [&](const QString& t) { return Abs(Val(Format(t, QStringLiteral("###########0.0000")))); };
        EXPECT_EQ(leer(antes[nombre]), leer(despues[nombre])) << n;
        despues[nombre] = antes[nombre];
    }
    EXPECT_EQ(Trim(antes[QStringLiteral("TxtRazon")]), despues[QStringLiteral("TxtRazon")]);
    despues[QStringLiteral("TxtRazon")] = antes[QStringLiteral("TxtRazon")];
    if (anio >= 2013) {
        // From 2013 the payment system is stored as "0" and its frame is hidden: the label
        // typed as "B" by a first year of activities comes back empty, unseen and unused.
        EXPECT_FALSE(otra.marcos.value(QStringLiteral("Frame3")).Visible);
        despues[QStringLiteral("LblSistema")] = antes[QStringLiteral("LblSistema")];
    }
    EXPECT_EQ(diferencias(antes, despues), "");

    otra.CmdGrabar_Click();
    EXPECT_FALSE(otra.mbModificado) << ultimo().texto.toStdString();
    EXPECT_EQ(volcado(QStringLiteral("CAB"), periodo).join(QLatin1Char('\n')).toStdString(), cab.join(QLatin1Char('\n')).toStdString());
    EXPECT_EQ(volcado(QStringLiteral("DET"), periodo).join(QLatin1Char('\n')).toStdString(), det.join(QLatin1Char('\n')).toStdString());
}

INSTANTIATE_TEST_SUITE_P(Regimenes, IdaYVuelta,
                         ::testing::Combine(::testing::ValuesIn(kVariantes), ::testing::Values(2026, 2012),
                                            ::testing::Values("1", "0", "")),
                         [](const ::testing::TestParamInfo<CasoIda>& i) {
                             const char* r = std::get<2>(i.param);
                             return std::string(std::get<0>(i.param).nombre) + "_" + std::to_string(std::get<1>(i.param)) + "_"
                                    + (*r ? (*r == '1' ? "Rectifica" : "Original") : "SinRespuesta");
                         });

// ---------------------------------------------------------------------------- what is written

TEST_F(Grabacion, LasFilasVanEnElOrdenDeLaDeclaracionYSoloLasDelRegimen)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen(QStringLiteral("2"))));
    const QStringList det = volcado(QStringLiteral("DET"), kPeriodo);
    QStringList orden;
    for (const QString& fila : det)
        orden << fila.section(QLatin1Char('|'), 5, 5);
    EXPECT_EQ(orden.first(), QStringLiteral("500"));
    EXPECT_EQ(orden.mid(orden.indexOf(QStringLiteral("002"))).join(QLatin1Char(' ')).toStdString(),
              "002 007 801 028 809 860 811 812 056 605 606 607 608 609 611 612 613 662 721 815 816 817 818");
    const QMap<QString, QString> m = mapaDet(kPeriodo);
    EXPECT_EQ(m.value(QStringLiteral("801")), QStringLiteral("COMERCIAL ANDIN"));   // the name's own 15 characters
    EXPECT_FALSE(m.contains(QStringLiteral("553")));                              // an empty box has no row

    QSqlQuery cab = ejecutar(QStringLiteral("SELECT * FROM CAB"));
    ASSERT_TRUE(cab.next());
    EXPECT_EQ(cab.record().value(QStringLiteral("FEC_PRO")).toString(), QStringLiteral("22/11/2026"));
    EXPECT_EQ(cab.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(cab.record(), 5));
}

// After the first save a new declaration goes on as a stored one, and is saved again in place:
// a new date, new codes, no "already exists".
TEST_F(Grabacion, LaNuevaGrabadaSeVuelveAGrabarEnSuSitio)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen()));
    EXPECT_FALSE(frm.OptInicio.b[0].Enabled);
    EXPECT_FALSE(frm.CboBalance.Enabled);
    EXPECT_FALSE(frm.CmbRuc.Visible);
    EXPECT_EQ(frm.TxtNumRuc.Text, kRuc);
    EXPECT_EQ(frm.msRuc, kRuc);
    EXPECT_TRUE(entorno.barras.last().startsWith(kRuc + QLatin1Char('|')));
    const QString codigo = escalar(QStringLiteral("SELECT cNumero FROM CAB")).toString();

    fijarHoy(QDate(2026, 11, 25));
    frm.darFocoCasilla(500);
    frm.teclear(500, QStringLiteral("9"));
    frm.CmdGrabar_Click();
    fijarHoy(QDate());
    EXPECT_FALSE(frm.mbModificado) << ultimo().texto.toStdString();
    EXPECT_EQ(contar(QStringLiteral("CAB")), 1);
    EXPECT_EQ(escalar(QStringLiteral("SELECT FEC_PRO FROM CAB")).toString(), QStringLiteral("25/11/2026"));
    EXPECT_NE(escalar(QStringLiteral("SELECT cNumero FROM CAB")).toString(), codigo);
    EXPECT_EQ(mapaDet(kPeriodo).value(QStringLiteral("500")), QStringLiteral("10109"));
}

// consistent, ESTADO, flags and text of the closing message.
using CasoEstado = std::tuple<bool, int, int, const char*>;
class EstadoGrabado : public Grabacion, public ::testing::WithParamInterface<CasoEstado> {};

TEST_P(EstadoGrabado, ElEstadoYElAvisoSiguenALaValidacion)
{
    const auto [consistente, estado, flags, mensaje] = GetParam();
    EntradaDeclaracion e = declaracionConsistente();
    if (!consistente)
        e.casillas[QStringLiteral("532")] = QStringLiteral("401");   // assets differ from liabilities + equity
    ASSERT_TRUE(grabarNueva(e));
    EXPECT_EQ(escalar(QStringLiteral("SELECT ESTADO FROM CAB WHERE PERIODO='202605'")).toInt(), estado);
    EXPECT_EQ(ultimo().texto.toStdString(), mensaje);
    EXPECT_EQ(ultimo().flags, flags);
    EXPECT_EQ(G().giEstadoGrabado, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Estados, EstadoGrabado,
    ::testing::Values(CasoEstado{true, 0, vbInformation, "La información de la declaración fue grabada satisfactoriamente."},
                      CasoEstado{false, 9, vbExclamation,
                                 "La información de la declaración fue grabada con inconsistencias. En estas "
                                 "condiciones no podra ser enviada a TAVEN."}));

TEST_F(Grabacion, OtroRegimenYSinPerdidaNoDejanFilasDeMas)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen(QStringLiteral("2"))));
    ejecutar(QStringLiteral("INSERT INTO F0931_PTCEA (Tip_doc_d, Doc_id_d, Periodo, Formulario, Anho, Importe)"
                            " VALUES (6, ?, ?, '0931', '2024', '500')"),
             {kRuc, kPeriodo});
    Frm931 otra(&entorno);
    abrirGuardada(otra, kPeriodo);
    respondedor().respuestas = {vbYes};   // "Va a cambiar de Régimen Tributario ..."
    otra.marcar(otra.optRenta, 0);
    otra.marcar(otra.OptPersona, 1);
    otra.CmdGrabar_Click();
    ASSERT_FALSE(otra.mbModificado) << ultimo().texto.toStdString();
    const QMap<QString, QString> m = mapaDet(kPeriodo);
    for (const char* amazonia : {"809", "810", "860", "811", "812"})
        EXPECT_FALSE(m.contains(QString::fromLatin1(amazonia))) << amazonia;
    EXPECT_EQ(m.value(QStringLiteral("056")) + m.value(QStringLiteral("813")), QStringLiteral("41"));
    // No loss in c108: the loss rows go, after being counted into 662.
    EXPECT_EQ(contar(QStringLiteral("F0931_PTCEA")), 0);
    EXPECT_EQ(m.value(QStringLiteral("662")), QStringLiteral("1"));
}

// ---------------------------------------------------------------------------- refused saves

struct CasoRechazo {
    const char* nombre;
    const char* cambio;        // casillas given ("=" alone removes one)
    const char* mensaje;
    int pestana1, pestana2;    // SSTab1 and SSTab2 after the refusal; -1 don't care
    const char* fechaAgraria;  // put in MkePeriodo after typing: the window wouldn't let it stay
};

void PrintTo(const CasoRechazo& c, std::ostream* os) { *os << c.nombre; }

class Rechazo : public Grabacion, public ::testing::WithParamInterface<CasoRechazo> {};

// A refused save shows its message on the page of the control at fault and leaves every box
// and the store as they were.
TEST_P(Rechazo, NoGrabaNadaYNoTocaLaPantalla)
{
    const CasoRechazo& c = GetParam();
    EntradaDeclaracion e = declaracionDeRegimen();
    const EntradaDeclaracion cambio = entrada(QString::fromLatin1(c.cambio));
    for (auto it = cambio.casillas.cbegin(); it != cambio.casillas.cend(); ++it)
        if (it.value().isEmpty())
            e.casillas.remove(it.key());
        else
            e.casillas[it.key()] = it.value();
    reproducirEntrada(frm, entorno, e);
    if (c.fechaAgraria)
        frm.MkePeriodo.Text = QString::fromLatin1(c.fechaAgraria);
    const auto antes = pantalla(frm);
    frm.CmdGrabar_Click();
    EXPECT_EQ(ultimo().texto.toStdString(), c.mensaje);
    EXPECT_EQ(ultimo().flags, vbCritical);
    EXPECT_EQ(frm.SSTab1.Tab, c.pestana1);
    if (c.pestana2 >= 0)
        EXPECT_EQ(frm.SSTab2.Tab, c.pestana2);
    EXPECT_TRUE(frm.mbModificado);
    EXPECT_EQ(diferencias(antes, pantalla(frm)), "");
    EXPECT_EQ(contar(QStringLiteral("CAB")) + contar(QStringLiteral("DET")), 0);
}

const char* const kFechaMal = "El año de la fecha del formulario 4888 debe corresponder al año de la presentación";
const char* const kSinResolucion = "El ingreso de los datos de la Resolución y Fecha de Notificación son campos obligatorios";
const char* const kNotificacion = "La fecha de notificación no puede ser anterior al 22/03/2013 ni mayor a la fecha del sistema";

INSTANTIATE_TEST_SUITE_P(
    Comprobaciones, Rechazo,
    ::testing::Values(
        CasoRechazo{"SinRegimen", "056=", "Debe señalar el regimen de renta", 0, 0, nullptr},
        CasoRechazo{"SinInicio", "605= 606= 607= 608= 611= 612= 613=", "Señale el inicio de actividades en el ejercicio", 0, 2, nullptr},
        CasoRechazo{"SinAnterior", "607=", "Indique si obtuvo utilidad o pérdida en el Ejercicio anterior", 0, 2, nullptr},
        CasoRechazo{"SinPrecedente", "606=", "Indique si obtuvo utilidad o pérdida en el Ejercicio precedente al anterior", 0, 2, nullptr},
        CasoRechazo{"SinBalance", "608= 611= 612= 613=", "Seleccione el mes al que debe corresponder la presentación del balance", 0, 2, nullptr},
        CasoRechazo{"SinResolucion", "612=", kSinResolucion, 0, 2, nullptr},
        CasoRechazo{"ResolucionCorta", "612=123456789012", "Número de Resolución incompleto", 0, 2, nullptr},
        CasoRechazo{"ResolucionCeros", "612=0000000000000", "Debe ingresar un Número de Resolución", 0, 2, nullptr},
        CasoRechazo{"NotificacionImposible", "613=31/02/2024", "La fecha de notificación no es válida", 0, 2, nullptr},
        CasoRechazo{"NotificacionAntigua", "613=21/03/2013", kNotificacion, 0, 2, nullptr},
        CasoRechazo{"AgrarioDeOtroAnio", "056=1 200=20260310", kFechaMal, 0, -1, "10/03/2025"},
        CasoRechazo{"AgrarioFuturo", "056=1 200=20260310",
                    "La fecha de presentación del formulario 4888 no puede ser mayor a la fecha del sistema", 0, -1, "01/12/2026"},
        CasoRechazo{"RucDelContador", "208=20500004560", "El RUC no es Válido.", 3, -1, nullptr},
        CasoRechazo{"RucPropio", "208=20100001234", "El RUC no puede ser igual al RUC del Contribuyente.", 3, -1, nullptr},
        CasoRechazo{"RucDelRepresentante", "225=06 226=20500004560", "El RUC no es Válido.", 3, -1, nullptr}),
    [](const auto& info) { return std::string(info.param.nombre); });

TEST_F(Grabacion, LaQueYaExisteYLaDeJunio2013NoSeGraban)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen()));
    const QStringList det = volcado(QStringLiteral("DET"), kPeriodo);
    Frm931 repetida(&entorno);
    reproducirEntrada(repetida, entorno, declaracionDeRegimen());
    repetida.CmdGrabar_Click();
    EXPECT_EQ(ultimo().texto, QStringLiteral("La declaración que desea registrar ya existe ") + kRuc
                                  + QStringLiteral(". Elija la opción modificar declaración o elija otro contribuyente."));
    EXPECT_EQ(volcado(QStringLiteral("DET"), kPeriodo), det);

    // A stored declaration of June 2013 can't be saved under the later rules.
    ejecutar(QStringLiteral("UPDATE CAB SET PERIODO='201306'"));
    ejecutar(QStringLiteral("UPDATE DET SET PERIODO='201306'"));
    const QStringList cab2013 = volcado(QStringLiteral("CAB"), QStringLiteral("201306"));
    const QStringList det2013 = volcado(QStringLiteral("DET"), QStringLiteral("201306"));
    Frm931 vieja(&entorno);
    abrirGuardada(vieja, QStringLiteral("201306"));
    vieja.darFocoCasilla(500);
    vieja.teclear(500, QStringLiteral("5"));
    const auto antes = pantalla(vieja);
    vieja.CmdGrabar_Click();
    EXPECT_EQ(ultimo().texto, QStringLiteral("El período no es válido"));
    EXPECT_TRUE(vieja.mbModificado);
    EXPECT_EQ(diferencias(antes, pantalla(vieja)), "");
    EXPECT_EQ(volcado(QStringLiteral("CAB"), QStringLiteral("201306")), cab2013);
    EXPECT_EQ(volcado(QStringLiteral("DET"), QStringLiteral("201306")), det2013);
}

// ---------------------------------------------------------------------------- failing saves

// A failure of the store in the middle of a save (a trigger refuses one casilla, after the
// header and many rows were written) leaves the stored declaration as it was, tells the
// engine's text, and keeps the work on screen unsaved; the same form saves it once the store
// accepts it again. A first save that fails leaves no header.
TEST_F(Grabacion, UnFalloAMitadDejaLaDeclaracionAnteriorEntera)
{
    ejecutar(QStringLiteral("CREATE TRIGGER fallo BEFORE INSERT ON DET WHEN NEW.CASILLA = '818'"
                            " BEGIN SELECT RAISE(ABORT, 'fallo forzado'); END"));
    EXPECT_FALSE(grabarNueva(declaracionDeRegimen()));
    EXPECT_EQ(ultimo().titulo, QStringLiteral("Error"));
    EXPECT_TRUE(frm.CmbRuc.Visible);
    EXPECT_EQ(contar(QStringLiteral("CAB")) + contar(QStringLiteral("DET")), 0);
    ejecutar(QStringLiteral("DROP TRIGGER fallo"));
    frm.CmdGrabar_Click();
    ASSERT_FALSE(frm.mbModificado);

    const QStringList cab = volcado(QStringLiteral("CAB"), kPeriodo);
    const QStringList det = volcado(QStringLiteral("DET"), kPeriodo);
    ejecutar(QStringLiteral("CREATE TRIGGER fallo BEFORE INSERT ON DET WHEN NEW.CASILLA = '461'"
                            " BEGIN SELECT RAISE(ABORT, 'fallo forzado'); END"));
    fijarHoy(QDate(2026, 11, 24));
    Frm931 otra(&entorno);
    abrirYCambiar(otra);
    G().giEstadoGrabado = 2;
    otra.CmdGrabar_Click();
    fijarHoy(QDate());
    EXPECT_EQ(ultimo().titulo, QStringLiteral("Error"));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^fallo forzado.*\\n -?\\d+$"), QRegularExpression::DotMatchesEverythingOption)
                    .match(ultimo().texto)
                    .hasMatch())
        << ultimo().texto.toStdString();
    EXPECT_TRUE(otra.mbModificado);
    EXPECT_EQ(G().giEstadoGrabado, 2);
    EXPECT_EQ(volcado(QStringLiteral("CAB"), kPeriodo), cab);
    EXPECT_EQ(volcado(QStringLiteral("DET"), kPeriodo), det);

    ejecutar(QStringLiteral("DROP TRIGGER fallo"));
    otra.CmdGrabar_Click();
    EXPECT_FALSE(otra.mbModificado);
    EXPECT_EQ(volcado(QStringLiteral("DET"), kPeriodo).size(), det.size());
}

// ---------------------------------------------------------------------------- leaving

// changed, answer to the question (0: none asked), form closed, saved.
using CasoSalida = std::tuple<bool, int, bool, bool>;
class Salida : public Grabacion, public ::testing::WithParamInterface<CasoSalida> {};

TEST_P(Salida, PreguntaSoloSiHayCambios)
{
    const auto [cambiada, respuesta, cierra, graba] = GetParam();
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen()));
    const QStringList det = volcado(QStringLiteral("DET"), kPeriodo);
    EntornoRegistro otro;
    Frm931 f(&otro);
    if (cambiada)
        abrirYCambiar(f);
    else
        abrirGuardada(f, kPeriodo);
    const qsizetype antes = respondedor().mostrados.size();
    respondedor().respuestas = {respuesta};
    f.cmdCancelar_Click();
    if (respuesta) {
        EXPECT_EQ(respondedor().mostrados.at(antes).texto, QStringLiteral("¿El formulario ha sido modificado, desea guardar los cambios?"));
        EXPECT_EQ(respondedor().mostrados.at(antes).flags, vbYesNoCancel + vbQuestion);
    } else {
        EXPECT_EQ(respondedor().mostrados.size(), antes);
    }
    EXPECT_EQ(f.cerrado, cierra);
    EXPECT_EQ(otro.cierres + otro.pickerVisible, cierra ? 2 : 0);   // modify mode: the picker shows again
    EXPECT_EQ(volcado(QStringLiteral("DET"), kPeriodo) == det, !graba);
}

INSTANTIATE_TEST_SUITE_P(Preguntas, Salida,
                         ::testing::Values(CasoSalida{false, 0, true, false}, CasoSalida{true, vbCancel, false, false},
                                           CasoSalida{true, vbNo, true, false}, CasoSalida{true, vbYes, true, true}));

TEST_F(Grabacion, SalirConSiYGrabacionRechazadaNoPierdeLoEscrito)
{
    ASSERT_TRUE(grabarNueva(declaracionDeRegimen()));
    const QStringList det = volcado(QStringLiteral("DET"), kPeriodo);
    EntornoRegistro otro;
    Frm931 f(&otro);
    abrirYCambiar(f);
    f.optRenta.apagar();   // the save is refused for the missing regime
    const QString escrito = f.txt(500);
    respondedor().respuestas = {vbYes};
    f.cmdCancelar_Click();
    EXPECT_EQ(respondedor().textos().last(), QStringLiteral("Debe señalar el regimen de renta"));
    EXPECT_FALSE(f.cerrado);
    EXPECT_TRUE(f.mbModificado);
    EXPECT_EQ(f.txt(500), escrito);
    EXPECT_EQ(volcado(QStringLiteral("DET"), kPeriodo), det);
}

TEST_F(Grabacion, SalirDeUnaNuevaBorraUnaGrabacionRota)
{
    reproducirEntrada(frm, entorno, declaracionDeRegimen());
    // A header left with the check code "0" by an interrupted save, with its rows; and a sound
    // declaration of another taxpayer.
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, cNumero) VALUES (6, ?, ?, '0931', '0')"),
             {kRuc, kPeriodo});
    ejecutar(QStringLiteral("INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA) VALUES (6, ?, ?, '0931', '500')"),
             {kRuc, kPeriodo});
    ejecutar(QStringLiteral("INSERT INTO ACTA (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO) VALUES (6, ?, ?, '0931')"), {kRuc, kPeriodo});
    ejecutar(QStringLiteral("INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, cNumero) VALUES (6, ?, ?, '0931', '123456')"),
             {DatosDemo::kRucPacifico, kPeriodo});
    respondedor().respuestas = {vbNo};
    frm.cmdCancelar_Click();
    EXPECT_TRUE(frm.cerrado);
    EXPECT_EQ(contar(QStringLiteral("CAB")) + contar(QStringLiteral("DET")) + contar(QStringLiteral("ACTA")), 1);
    EXPECT_EQ(entorno.barras.last(), QStringLiteral("|||0931"));
    EXPECT_EQ(entorno.pickerVisible, 0);
}

// ---------------------------------------------------------------------------- order number

// A sent declaration opened to register its order number: only the number is saved, in the
// copy picked, when its length and check digits are right.
TEST_F(Grabacion, ElNumeroDeOrdenSeRegistraSoloSiEsValidoYEnSuCopia)
{
    const QString control = QStringLiteral("0012345678");
    // The copy shown rectifies; the other one does not.
    for (const char* correl : {"1", "2"})
        ejecutar(QStringLiteral("INSERT INTO HCAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CONTROL, RECTIFICA)"
                                " VALUES (6, ?, ?, '0931', ?, ?, ?)"),
                 {kRuc, kPeriodo, QString::fromLatin1(correl), control, correl[0] == '1' ? QStringLiteral("1") : QStringLiteral("0")});
    const EntradaDeclaracion guardada = entrada(QStringLiteral("500=1000 056=4 813=0 605=0 606=0 607=0 608=1"));
    for (auto it = guardada.casillas.cbegin(); it != guardada.casillas.cend(); ++it)
        ejecutar(QStringLiteral("INSERT INTO HDET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CORREL, CASILLA, I_VALOR)"
                                " VALUES (6, ?, ?, '0931', '1', ?, ?)"),
                 {kRuc, kPeriodo, it.key(), it.value()});
    Globales& g = G();
    g.gbEnviada = true;
    g.giOpcion = 2;
    g.gsRuc = kRuc;
    g.gsPeriodo = kPeriodo;
    g.gsCorrel = QStringLiteral("1");
    g.gsControl = control;
    frm.miModo = 1;
    frm.msRuc = kRuc;
    frm.msRazon = DatosDemo::kNombreAndina;
    frm.Form_Load();
    EXPECT_EQ(frm.txt(500), QStringLiteral("1,000"));
    EXPECT_EQ(frm.CmdGrabar.Caption, QStringLiteral("&Registrar Nro. Orden"));
    EXPECT_FALSE(frm.CmdValidar.Visible);
    EXPECT_FALSE(frm.caja(461).Enabled);
    EXPECT_TRUE(frm.OptRectifica.valor(1));
    EXPECT_FALSE(frm.marcos.value(QStringLiteral("Frame9")).Enabled);
    EXPECT_FALSE(frm.mbModificado);

    const QString bueno = QStringLiteral("123456789");
    const QString digitos = DigitoVerificador(control, bueno);
    const QList<QPair<QString, QString>> rechazos = {{QStringLiteral("12345678901"), QStringLiteral("     El número de orden no es válido")},
                                                     {bueno, QStringLiteral("     El digito Verificador es incorrecto")}};
    for (const auto& [orden, mensaje] : rechazos) {
        frm.txtOrden.Text = orden;
        frm.txtverifica.Text = digitos == QLatin1String("00") ? QStringLiteral("11") : QStringLiteral("00");
        frm.CmdGrabar_Click();
        EXPECT_EQ(ultimo().texto, mensaje);
    }
    // Leaving with a changed number asks; a wrong length keeps the form open.
    frm.txtOrden.Text = QStringLiteral("1234567");
    frm.mbModificado = true;
    respondedor().respuestas = {vbYes};
    frm.cmdCancelar_Click();
    EXPECT_EQ(respondedor().mostrados.at(respondedor().mostrados.size() - 2).texto,
              QStringLiteral(" El número de orden ha cambiado. ¿Desea guardar los cambios?"));
    EXPECT_EQ(ultimo().texto, QStringLiteral("El número de orden es incorrecto"));
    EXPECT_FALSE(frm.cerrado);
    EXPECT_TRUE(escalar(QStringLiteral("SELECT NORDEN FROM HCAB WHERE CORREL='1'")).isNull());

    frm.txtOrden.Text = bueno;
    frm.txtverifica.Text = digitos;
    frm.CmdGrabar_Click();
    EXPECT_EQ(ultimo().texto, QStringLiteral("El número de orden y el digito verificador fueron grabados satisfactoriamente."));
    EXPECT_EQ(ultimo().flags, vbExclamation);
    EXPECT_TRUE(frm.cerrado);
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM HCAB ORDER BY CORREL"));
    ASSERT_TRUE(q.next());
    EXPECT_EQ(q.record().value(QStringLiteral("NORDEN")).toString(), bueno);
    EXPECT_EQ(q.record().value(QStringLiteral("cNumero")).toString(), CodigoFila(q.record(), 6));
    ASSERT_TRUE(q.next());
    EXPECT_TRUE(q.record().value(QStringLiteral("NORDEN")).isNull());
    EXPECT_EQ(contar(QStringLiteral("CAB")), 0);
}

}  // namespace
