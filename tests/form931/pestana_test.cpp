// The check on leaving the identification: the first fault only, its text, and the control
// that gets the focus; and the tab changes that run it.
#include "formulario_nuevo.h"

#include <functional>

namespace {

using Preparar = std::function<void(Frm931&)>;

struct CasoPestana {
    const char* nombre;
    Preparar preparar;        // on a consistent general-regime declaration
    const char* mensaje;      // "" when the check passes
    const char* foco;
};
void PrintTo(const CasoPestana& c, std::ostream* os) { *os << c.nombre; }

class Pestana : public FormularioNuevo, public ::testing::WithParamInterface<CasoPestana> {};

TEST_P(Pestana, PrimeraFalta)
{
    const CasoPestana& c = GetParam();
    abrir();
    identificar(0, 1, 1);
    f().darFoco(QStringLiteral("CmdValidar"));
    c.preparar(f());
    bool ok = false;
    f().ValidaContForm1(ok);
    if (!*c.mensaje) {
        EXPECT_TRUE(ok);
        EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join(QLatin1Char('|')).toStdString();
        return;
    }
    EXPECT_FALSE(ok);
    ASSERT_EQ(mensajes(), QStringList{QString::fromUtf8(c.mensaje)});
    const MensajeMostrado& m = familia.respondedor().mostrados.first();
    EXPECT_EQ(m.flags, vbCritical);
    EXPECT_EQ(m.titulo, f().Caption);
    EXPECT_EQ(f().foco, QString::fromLatin1(c.foco));
}

auto tel(const char* t)
{
    return [=](Frm931& f) { f.escribirControl(QStringLiteral("TxtTelefono"), QString::fromLatin1(t)); };
}
// Another regime, as a first choice (no question in between).
void regimen(Frm931& f, int i)
{
    f.miRegimen = 9;
    f.marcar(f.optRenta, i);
}

const char* const kTelefono = "Ingrese su número de teléfono o un número de referencia.";

const CasoPestana kCasos[] = {
    {"todo_en_orden", [](Frm931&) {}, "", ""},
    {"telefono_vacio_pasa", tel(""), "", ""},
    {"telefono_de_5", tel("44455"), kTelefono, "TxtTelefono"},
    {"telefono_de_6", tel("444555"), "", ""},
    {"telefono_de_7", tel("4445555"), "", ""},
    {"telefono_de_8_sin_9", tel("44455556"), "El número ingresado debe ser de 7 digitos, o un celular de 8 o 7 digitos.", "TxtTelefono"},
    {"celular_de_8", tel("94455556"), "", ""},
    {"celular_de_7", tel("9445555"), "", ""},
    {"celular_de_6", tel("944555"), "El celular ingresado debe ser de 8 o 7 digitos.", "TxtTelefono"},
    {"ocho_ceros", tel("00000000"), "El número ingresado debe ser de 7 digitos, o un celular de 8 o 7 digitos.", "TxtTelefono"},
    {"sin_contribuyente", [](Frm931& f) { f.CmbRuc.ListIndex = -1; }, "Debe seleccionar un Contribuyente.", "CmbRuc"},
    {"sin_regimen", [](Frm931& f) { f.optRenta.apagar(); }, "Debe señalar el regimen de renta", "TxtTelefono"},
    {"general_sin_persona", [](Frm931& f) { f.OptPersona.apagar(); }, "Seleccione el tipo de persona", "OptPersona"},
    {"agrario_sin_fecha", [](Frm931& f) { regimen(f, 1); },
     "El año de la fecha del formulario 4888 debe corresponder al año de la presentación", "MkePeriodo"},
    {"amazonia_sin_ley", [](Frm931& f) { regimen(f, 2); }, "Señale si tiene acogimiento a la ley de amazonía.", "OptLeyAmazonia"},
    {"amazonia_sin_ubicacion", [](Frm931& f) { regimen(f, 2); f.marcar(f.OptLeyAmazonia, 0); },
     "Señale si esta ubicado en la amazonía.", "OptUbicAmazonia"},
    {"amazonia_no_y_no", [](Frm931& f) { regimen(f, 2); f.marcar(f.OptLeyAmazonia, 0); f.marcar(f.OptUbicAmazonia, 0); }, "", ""},
    {"amazonia_sin_domicilio", [](Frm931& f) { regimen(f, 2); f.marcar(f.OptUbicAmazonia, 1); },
     "Indique si su domicilio fiscal se encuentra ubicado en la Amazonia y coincide con el lugar donde tiene su administración y contabilidad.",
     "OptDomFiscal"},
    {"amazonia_sin_zona", [](Frm931& f) { regimen(f, 2); f.marcar(f.OptUbicAmazonia, 1); f.marcar(f.OptDomFiscal, 1); },
     "Señale la zona a la que corresponde su domicilio.", "OptZona"},
    {"amazonia_sin_ubigeo",
     [](Frm931& f) { regimen(f, 2); f.marcar(f.OptUbicAmazonia, 1); f.marcar(f.OptDomFiscal, 1); f.marcar(f.OptZona, 0); },
     "Señale el ubigeo al que corresponde su zona.", "CmdZona1"},
    {"frontera_sin_actividad", [](Frm931& f) { regimen(f, 3); }, "Señale si se dedica a la actividad industrial.", "OptActividad"},
    {"frontera_sin_domicilio", [](Frm931& f) { regimen(f, 3); f.marcar(f.OptActividad, 1); },
     "Indique si su domicilio fiscal se encuentra ubicado en la Zona de frontera  y coincide con el lugar donde tiene su administración y contabilidad.",
     "OptFrontera"},
    {"frontera_sin_ubigeo", [](Frm931& f) { regimen(f, 3); f.marcar(f.OptActividad, 1); f.marcar(f.OptFrontera, 1); },
     "Señale el ubigeo al que corresponde la zona de frontera.", "CmdZona2"},
    {"convenio_sin_tipo", [](Frm931& f) { regimen(f, 4); }, "Señale el tipo de convenio de estabilidad", "TxtNumOrdenF2305"},
    {"convenio_sin_orden", [](Frm931& f) { regimen(f, 4); f.marcar(f.OptConvEstab, 2); },
     "Registre correctamente el número de orden del formulario 2305", "TxtNumOrdenF2305"},
    {"sin_inicio", [](Frm931& f) { f.OptInicio.apagar(); }, "Señale el inicio de actividades en el ejercicio", "OptInicio"},
    {"sin_precedente_antes_que_anterior", [](Frm931& f) { f.marcar(f.OptInicio, 0); },
     "Indique si obtuvo utilidad o pérdida en el Ejercicio precedente al anterior", "OptPrecedente"},
    {"sin_anterior", [](Frm931& f) { f.marcar(f.OptInicio, 0); f.marcar(f.OptPrecedente, 1); },
     "Indique si obtuvo utilidad o pérdida en el Ejercicio anterior", "OptAnterior"},
    {"sin_mes_de_balance", [](Frm931& f) { f.CboBalance.ListIndex = -1; },
     "Seleccione el mes al que debe corresponder la presentación del balance", "CboBalance"},
    {"mype_no_necesita_mes", [](Frm931& f) { regimen(f, 5); f.CboBalance.ListIndex = -1; }, "", ""},
};

INSTANTIATE_TEST_SUITE_P(Reglas, Pestana, ::testing::ValuesIn(kCasos),
                         [](const auto& i) { return std::string(i.param.nombre); });

// Leaving the identification with a fault keeps the user there, on the inner page of the
// control (a change that passes, and the one refused for want of a taxpayer, are the scenarios').
TEST_F(FormularioNuevo, CambioDePestanaConFalta)
{
    abrir();
    identificar(0, -1, 1);
    f().elegirPestana(f().SSTab1, 2);
    EXPECT_EQ(mensajes(), QStringList{QStringLiteral("Seleccione el tipo de persona")});
    EXPECT_EQ(f().SSTab1.Tab, 0);
    EXPECT_EQ(f().SSTab2.Tab, 1);
    EXPECT_EQ(f().foco, QStringLiteral("OptPersona"));
}

// The inner tab of the identification asks for a telephone and a regime first.
TEST_F(FormularioNuevo, SegundaPestanaDeIdentificacion)
{
    abrir();
    contribuyente();
    f().escribirControl(QStringLiteral("TxtTelefono"), QStringLiteral("12"));
    f().elegirPestana(f().SSTab2, 2);
    EXPECT_EQ(mensajes().last(), QStringLiteral("Ingrese su número de teléfono o un número de referencia."));
    EXPECT_EQ(f().foco, QStringLiteral("TxtTelefono"));
    f().escribirControl(QStringLiteral("TxtTelefono"), QStringLiteral("123456"));
    f().elegirPestana(f().SSTab2, 2);
    EXPECT_EQ(mensajes().last(), QStringLiteral("Debe señalar el regimen de renta"));
    EXPECT_EQ(f().SSTab2.Tab, 0);
    f().marcar(f().optRenta, 3);
    f().elegirPestana(f().SSTab2, 1);
    EXPECT_EQ(f().SSTab2.Tab, 1);
    EXPECT_EQ(mensajes().size(), 2);
}

}  // namespace
