// The contract of `f931` as a script sees it: bad input refused with exit 2 and one exact line
// on standard error and the database untouched, batches of good, refused and bad
// declarations, the help, the version and the unknown options. A database out of reach: the
// store's test (almacen_test).
#include "form931/grabacion_comun.h"

#include "store/funciones.h"

#include "cli/proceso.h"
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSqlQuery>

#include <gtest/gtest.h>

using namespace prueba931;

// Messages compared in full read better as text.
inline void PrintTo(const QString& s, std::ostream* os)
{
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Linea : public PruebaConBase {
protected:
    QStringList comunes() const { return ::comunes(familia.baseDatos()); }
};

QByteArray json(const QString& casillas, const QString& ruc = DatosDemo::kRucAndina)
{
    return QStringLiteral(R"#({"ruc": "%1", "casillas": {%2}})#").arg(ruc, casillas).toUtf8();
}

// What a declaration of the general regime needs before its figures.
const QString kGeneral = QStringLiteral(R"#("056": "4", "813": "1", "605": "0", "606": "0", "607": "0", "608": "0")#");

// ---------------------------------------------------------------------------- bad input

struct Mala {
    const char* nombre;
    QByteArray entrada;
    QString linea;   // the one line on standard error
};

class EntradaMala : public Linea, public ::testing::WithParamInterface<Mala> {};

// calcular, validar and importar refuse the same input with exit 2, the same one line, nothing
// on standard output, and the database as it was.
TEST_P(EntradaMala, LosTresComandosLaRechazanSinTocarLaBase)
{
    const Mala& m = GetParam();
    const QString archivo = escribirArchivo(m.entrada);
    // The version moves with every commit of another connection: of f931.
    const QVariant version = escalar(QStringLiteral("PRAGMA data_version"));
    for (const char* comando : {"calcular", "validar", "importar"}) {
        const Corrida r = f931(QStringList{QString::fromLatin1(comando)} + comunes() << archivo);
        EXPECT_EQ(r.codigo, 2) << comando;
        EXPECT_EQ(r.errores, QStringList{m.linea}) << comando;
        EXPECT_TRUE(r.salida.isEmpty()) << comando;
    }
    EXPECT_EQ(escalar(QStringLiteral("PRAGMA data_version")), version);
    EXPECT_EQ(contar(QStringLiteral("CAB")), 0);
}

const QString kAgrario = QStringLiteral(R"#("056": "1", "605": "0", "606": "0", "607": "0", "608": "0")#");
const QString kAmazonia = QStringLiteral(R"#("056": "2", "809": "1", "860": "1", "811": "0")#");

INSTANTIATE_TEST_SUITE_P(
    Cli, EntradaMala,
    ::testing::Values(
        // The shape of the input.
        Mala{"JsonMalFormado", R"#({"ruc": "20100001234", "casillas": {"461": )#",
             QStringLiteral("JSON mal formado en la posición 43: unterminated object")},
        Mala{"NoEsObjeto", "[1, 2]", QStringLiteral("la entrada debe ser un objeto JSON")},
        Mala{"ClaveDesconocida", R"#({"ruc": "20100001234", "casilla": {}})#",
             QStringLiteral(R"#(clave desconocida en la entrada: "casilla")#")},
        Mala{"SinRuc", R"#({"casillas": {}})#", QStringLiteral(R"#(falta el RUC del contribuyente ("ruc"))#")},
        Mala{"RucNumero", R"#({"ruc": 20100001234})#", QStringLiteral(R"#(el RUC ("ruc") debe ser texto)#")},
        Mala{"RucConBlanco", R"#({"ruc": " 20100001234"})#",
             QStringLiteral(R"#(el RUC ("ruc") debe tener 11 dígitos: " 20100001234")#")},
        Mala{"CasillasLista", R"#({"ruc": "20100001234", "casillas": ["461"]})#",
             QStringLiteral(R"#("casillas" debe ser un objeto)#")},
        Mala{"CodigoDesconocido", json(QStringLiteral(R"#("999": "1")#")), QStringLiteral(R"#(casilla desconocida: "999")#")},
        Mala{"ValorLogico", json(QStringLiteral(R"#("461": true)#")),
             QStringLiteral("el valor de la casilla 461 debe ser texto o un número entero")},
        Mala{"NumeroConDecimales", json(QStringLiteral(R"#("461": 1.5)#")),
             QStringLiteral("la casilla 461 lleva un número que no es entero: 1.5")},
        Mala{"NumeroEnorme", json(QStringLiteral(R"#("461": 1e20)#")),
             QStringLiteral("la casilla 461 lleva un número que no es entero: 1e+20")},
        Mala{"RucDeLaCasilla002", json(QStringLiteral(R"#("002": "20500004569")#")),
             QStringLiteral(R"#(la casilla 002 ("20500004569") no es el RUC de la entrada (20100001234))#")},
        Mala{"ContribuyenteQueNoEsta", json(QString(), QStringLiteral("20999999999")),
             QStringLiteral("el contribuyente 20999999999 no está en la lista del usuario ADMIN")},
        // Amounts: digits only, as many as the box holds while it has the focus.
        Mala{"ImporteNegativo", json(kGeneral + QStringLiteral(R"#(, "461": "-5000")#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "-5000" (carácter no admitido: "-"))#")},
        Mala{"ImporteConPunto", json(kGeneral + QStringLiteral(R"#(, "461": "1.5")#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "1.5" (carácter no admitido: "."))#")},
        Mala{"ImporteExponente", json(kGeneral + QStringLiteral(R"#(, "461": "1e20")#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "1e20" (carácter no admitido: "e"))#")},
        Mala{"ImporteConSeparador", json(kGeneral + QStringLiteral(R"#(, "461": "1,000")#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "1,000" (carácter no admitido: ","))#")},
        Mala{"PerdidaEntreParentesis", json(kGeneral + QStringLiteral(R"#(, "462": "(15)")#")),
             QStringLiteral(R"#(la casilla 462 no admite el valor "(15)" (carácter no admitido: "("))#")},
        Mala{"ImporteDemasiadoLargo", json(kGeneral + QStringLiteral(R"#(, "461": "1234567890123")#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "1234567890123" (más de 12 caracteres))#")},
        Mala{"NumeroJsonDemasiadoLargo", json(kGeneral + QStringLiteral(R"#(, "461": 1234567890123)#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "1234567890123" (más de 12 caracteres))#")},
        Mala{"NumeroJsonNegativo", json(kGeneral + QStringLiteral(R"#(, "500": -5)#")),
             QStringLiteral(R"#(la casilla 500 no admite el valor "-5" (carácter no admitido: "-"))#")},
        Mala{"SaltoDeLinea", json(kGeneral + QStringLiteral(R"#(, "461": "12\n3")#")),
             QStringLiteral(R"#(la casilla 461 no admite el valor "12\u000a3" (carácter no admitido: "\u000a"))#")},
        Mala{"ParteDelAnexo", json(kGeneral + QStringLiteral(R"#(, "432": "-7000")#")),
             QStringLiteral(R"#(la casilla 432 no admite el valor "-7000" (carácter no admitido: "-"))#")},
        // Answers: their codes and nothing else.
        Mala{"RespuestaFueraDeRango", json(QStringLiteral(R"#("056": "4", "813": "2")#")),
             QStringLiteral(R"#(la casilla 813 no admite el valor "2" (admite de 0 a 1))#")},
        Mala{"RespuestaConBlanco", json(QStringLiteral(R"#("056": "4", "813": " 1")#")),
             QStringLiteral(R"#(la casilla 813 no admite el valor " 1" (admite de 0 a 1))#")},
        Mala{"FechaDeBalanceConCero", json(QStringLiteral(R"#("056": "4", "813": "1", "605": "0", "606": "0", "607": "0", "608": "01")#")),
             QStringLiteral(R"#(la casilla 608 no admite el valor "01" (admite de 0 a 1))#")},
        Mala{"RegimenDesconocido", json(QStringLiteral(R"#("056": "7")#")),
             QStringLiteral(R"#(la casilla 056 no admite el valor "7" (régimen 4, 1, 2, 3, 6 u 8))#")},
        Mala{"FechaConGuiones", json(kAgrario + QStringLiteral(R"#(, "200": "2026-03-10")#")),
             QStringLiteral(R"#(la casilla 200 no admite el valor "2026-03-10" (fecha como aaaammdd o dd/mm/aaaa))#")},
        Mala{"UbigeoQueNoExiste", json(kAmazonia + QStringLiteral(R"#(, "812": "999999")#")),
             QStringLiteral(R"#(la casilla 812 no admite el valor "999999" (no es un distrito del catálogo))#")},
        Mala{"ZonaQueNoEstaEnLaLista", json(kGeneral + QStringLiteral(R"#(, "209": "5")#")),
             QStringLiteral(R"#(la casilla 209 no admite el valor "5" (no está en la lista))#")},
        // Text boxes: what their key filter takes, unchanged, up to their length.
        Mala{"TelefonoConGuion", json(QStringLiteral(R"#("028": "444-5566")#")),
             QStringLiteral(R"#(la casilla 028 no admite el valor "444-5566" (carácter no admitido: "-"))#")},
        Mala{"TelefonoLargo", json(QStringLiteral(R"#("028": "1234567890")#")),
             QStringLiteral(R"#(la casilla 028 no admite el valor "1234567890" (más de 9 caracteres))#")},
        Mala{"NombreEnMinusculas", json(kGeneral + QStringLiteral(R"#(, "815": "Perez")#")),
             QStringLiteral(R"#(la casilla 815 no admite el valor "Perez" ("e" se teclea como "E"))#")},
        Mala{"NombreConArroba", json(kGeneral + QStringLiteral(R"#(, "815": "PEREZ@")#")),
             QStringLiteral(R"#(la casilla 815 no admite el valor "PEREZ@" (carácter no admitido: "@"))#")},
        // What the form locks.
        Mala{"CasillaCalculada", json(kGeneral + QStringLiteral(R"#(, "463": "5")#")),
             QStringLiteral("la casilla 463 está bloqueada")},
        Mala{"AsistenteSinPartes", json(kGeneral + QStringLiteral(R"#(, "477": "5")#")),
             QStringLiteral("la casilla 477 se declara por sus partes 432 y 433")}),
    [](const ::testing::TestParamInfo<Mala>& i) { return std::string(i.param.nombre); });

// An input over 1 MiB, and one that never ends, are refused without reading them whole.
TEST_F(Linea, LaEntradaTieneUnTope)
{
    QByteArray grande = json(kGeneral);
    grande.append(1024 * 1024, ' ');
    const QString archivo = escribirArchivo(grande);
    for (const QString& fuente : {archivo, QStringLiteral("/dev/zero")}) {
        const Corrida r = f931(QStringList{QStringLiteral("calcular")} + comunes() << fuente);
        EXPECT_EQ(r.codigo, 2);
        EXPECT_EQ(r.errores, QStringList{fuente + QStringLiteral(" pasa de 1048576 bytes")});
    }
    const Corrida r = f931(QStringList{QStringLiteral("importar")} + comunes() << QStringLiteral("-"), grande + '\n');
    EXPECT_EQ(r.codigo, 2);
    EXPECT_EQ(r.errores.first(), QStringLiteral("-:1: la línea pasa de 1048576 bytes: el resto de la entrada no se lee"));
}

// ---------------------------------------------------------------------------- batch

QJsonObject objeto(const QByteArray& linea)
{
    return QJsonDocument::fromJson(linea).object();
}

// Good, refused and bad declarations on standard input: each one its result line, the good
// ones saved, the problems on standard error after their line number, and the summary.
TEST_F(Linea, UnLoteMezcladoGrabaLoBuenoYSaleConLaPeorCausa)
{
    // The first one gives two figures as JSON integers: they are taken as their digits.
    const QByteArray lote = json(kGeneral + QStringLiteral(R"#(, "500": 1000, "532": "400", "544": 600)#")) + '\n'
                            + json(QStringLiteral(R"#("056": "4")#"), DatosDemo::kRucPacifico) + '\n' + "\n"
                            + json(kGeneral + QStringLiteral(R"#(, "461": "-1")#"), DatosDemo::kRucNorte) + '\n'
                            + json(kGeneral, DatosDemo::kRucAmazonia);   // the last line without its line feed
    const Corrida r = f931(QStringList{QStringLiteral("importar")} + comunes() << QStringLiteral("-"), lote);
    EXPECT_EQ(r.codigo, 2);
    const QList<QByteArray> lineas = r.salida.trimmed().split('\n');
    ASSERT_EQ(lineas.size(), 4) << r.salida.toStdString();
    const struct {
        const char* entrada;
        int codigo;
    } esperado[] = {{"-:1", 0}, {"-:2", 1}, {"-:4", 2}, {"-:5", 0}};
    for (int i = 0; i < 4; ++i) {
        const QJsonObject o = objeto(lineas[i]);
        EXPECT_EQ(o.value(QStringLiteral("entrada")).toString(), QString::fromLatin1(esperado[i].entrada));
        EXPECT_EQ(o.value(QStringLiteral("codigo")).toInt(-1), esperado[i].codigo) << i;
    }
    const QMap<QString, QString> det = mapaDet(QStringLiteral("202605"));
    EXPECT_EQ(objeto(lineas[0]).value(QStringLiteral("det")).toArray().size(), det.size());
    EXPECT_EQ(det.value(QStringLiteral("500")), QStringLiteral("1000"));
    EXPECT_EQ(det.value(QStringLiteral("544")), QStringLiteral("600"));
    EXPECT_EQ(r.errores, (QStringList{QStringLiteral("-:2: Señale el inicio de actividades en el ejercicio"),
                                      QStringLiteral(R"#(-:4: la casilla 461 no admite el valor "-1" (carácter no admitido: "-"))#"),
                                      QStringLiteral("importar: 4 declaraciones: 2 grabadas, 1 rechazadas, 1 con entrada mala")}));
    EXPECT_EQ(contar(QStringLiteral("CAB")), 2);

    // Files, one of them missing: the missing one is bad input, the others are saved.
    const QString una = escribirArchivo(json(kGeneral, DatosDemo::kRucPersona), QStringLiteral("una.json"));
    const Corrida f = f931(QStringList{QStringLiteral("importar")} + comunes() << una << QStringLiteral("no_existe.json"));
    EXPECT_EQ(f.codigo, 2);
    EXPECT_EQ(f.errores.last(), QStringLiteral("importar: 2 declaraciones: 1 grabadas, 0 rechazadas, 1 con entrada mala"));
    EXPECT_EQ(contar(QStringLiteral("CAB")), 3);
}

TEST_F(Linea, UnLoteSinEntradasMalasSaleConUnoSiAlgunaFueRechazadaYConCeroSiNo)
{
    const QByteArray buena = json(kGeneral);
    Corrida r = f931(QStringList{QStringLiteral("importar")} + comunes() << QStringLiteral("-"),
                     buena + '\n' + json(kGeneral, DatosDemo::kRucPacifico) + '\n');
    EXPECT_EQ(r.codigo, 0);
    r = f931(QStringList{QStringLiteral("importar")} + comunes() << QStringLiteral("-"),
             json(kGeneral, DatosDemo::kRucNorte) + '\n' + buena + '\n');   // the second exists already
    EXPECT_EQ(r.codigo, 1);
    EXPECT_EQ(r.errores.last(), QStringLiteral("importar: 2 declaraciones: 1 grabadas, 1 rechazadas, 0 con entrada mala"));
}

// Nothing of one declaration reaches the next: each result of a batch is what the declaration
// gives alone, in a process of its own. The first ones leave behind a MYPE projection, a loss,
// an agrarian date, a convenio, a geographic code and a refused save.
TEST_F(Linea, NingunaDeclaracionDelLoteHeredaDeLaAnterior)
{
    EntradaDeclaracion ultima = declaracionConsistente();
    ultima.ruc = DatosDemo::kRucPacifico;
    QByteArray lote;
    for (const char* regimen : {"8", "1", "6", "2"})
        lote += json(declaracionDeRegimen(QString::fromLatin1(regimen))) + '\n';   // the same RUC: one saved, three refused
    lote += json(ultima) + '\n';

    const QString otra = familia.carpeta() + QStringLiteral("sola.db");
    crearBaseDatos(otra, true);
    QStringList sola = comunes();
    sola[1] = otra;
    const Corrida a = f931(QStringList{QStringLiteral("importar")} + comunes() << QStringLiteral("-"), lote);
    const Corrida b = f931(QStringList{QStringLiteral("importar")} + sola << escribirArchivo(json(ultima)));
    ASSERT_EQ(b.codigo, 0) << b.error();
    QJsonObject deLote = objeto(a.salida.trimmed().split('\n').last());
    EXPECT_EQ(deLote.take(QStringLiteral("entrada")).toString(), QStringLiteral("-:5"));
    EXPECT_EQ(deLote.take(QStringLiteral("codigo")).toInt(-1), 0);
    EXPECT_EQ(deLote, objeto(b.salida));
}

// ---------------------------------------------------------------------------- options

TEST_F(Linea, AyudaVersionYOpcionesDesconocidas)
{
    Corrida r = f931({QStringLiteral("--help")});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_TRUE(r.salida.contains("importar"));
    EXPECT_TRUE(QString::fromUtf8(r.salida).contains(QStringLiteral(
        "Códigos de salida: 0 hecho, 1 rechazada por las reglas del formulario, 2 entrada mala, 3 base de datos no disponible.")));
    r = f931({QStringLiteral("--version")});
    EXPECT_EQ(r.codigo, 0);
    EXPECT_EQ(r.salida, "f931 1.0\n");
    for (const char* comando : {"calcular", "validar", "importar", "exportar", "informe", "crear-base"}) {
        r = f931({QString::fromLatin1(comando), QStringLiteral("--help")});
        EXPECT_EQ(r.codigo, 0) << comando;
        EXPECT_TRUE(r.salida.startsWith(QByteArray("uso: f931 ") + comando)) << comando;
        EXPECT_TRUE(r.errores.isEmpty()) << comando;
    }
    EXPECT_EQ(contar(QStringLiteral("CAB")), 0);

    const struct {
        QStringList argumentos;
        QString linea;
    } malas[] = {
        {{QStringLiteral("--bogus")}, QStringLiteral("opción desconocida: --bogus (f931 --help da la ayuda)")},
        {{QStringLiteral("importar"), QStringLiteral("--bogus"), QStringLiteral("x.json")},
         QStringLiteral("opción desconocida: --bogus (f931 importar --help da la ayuda)")},
        {{QStringLiteral("informe"), QStringLiteral("-x")}, QStringLiteral("opción desconocida: -x (f931 informe --help da la ayuda)")},
        {{QStringLiteral("calcular"), QStringLiteral("x.json"), QStringLiteral("--base")}, QStringLiteral("falta el valor de --base")},
        {{QStringLiteral("calcular"), QStringLiteral("--hoy"), QStringLiteral("2026-02-30"), QStringLiteral("x.json")},
         QStringLiteral(R"#(fecha no válida en --hoy: "2026-02-30" (AAAA-MM-DD))#")},
        {{QStringLiteral("validar")}, QStringLiteral("falta ENTRADA.json; uso: f931 validar [opciones] ENTRADA.json")},
        {{QStringLiteral("crear-base"), QStringLiteral("--help=no")}, QStringLiteral("la opción --help no lleva valor")},
        {{QStringLiteral("enviar")}, QStringLiteral("comando desconocido: enviar; uso: f931 COMANDO [opciones]; comandos: "
                                                    "calcular, crear-base, exportar, importar, informe, respaldar, validar, verificar; f931 --help da la ayuda")},
    };
    for (const auto& m : malas) {
        r = f931(m.argumentos);
        EXPECT_EQ(r.codigo, 2) << m.argumentos.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(r.errores, QStringList{m.linea});
    }
}

// exportar and informe take the user from the settings file the environment points at.
TEST_F(Linea, ElUsuarioSaleDelArchivoDeConfiguracion)
{
    ASSERT_EQ(f931(QStringList{QStringLiteral("importar")} + comunes() << escribirArchivo(json(kGeneral, DatosDemo::kRucNorte))).codigo, 0);
    escribirArchivo("[Options]\r\nSysUser=ADMIN\r\n", QStringLiteral("QL000.INI"));
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QStringLiteral("QVL_WINDIR"), familia.carpeta());
    const QStringList declaracion{QStringLiteral("--base"), familia.baseDatos(), QStringLiteral("--ruc"), DatosDemo::kRucNorte,
                                  QStringLiteral("--periodo"), QStringLiteral("202605")};
    Corrida r = f931(QStringList{QStringLiteral("exportar")} + declaracion, {}, entorno);
    EXPECT_EQ(r.codigo, 0) << r.error();
    EXPECT_EQ(objeto(r.salida).value(QStringLiteral("ruc")).toString(), DatosDemo::kRucNorte);
    r = f931(QStringList{QStringLiteral("informe")} + declaracion, {}, entorno);
    EXPECT_EQ(r.codigo, 0) << r.error();

    // Without a user anywhere: bad input, naming the way out.
    entorno.insert(QStringLiteral("QVL_WINDIR"), familia.carpeta() + QStringLiteral("TMP"));
    r = f931(QStringList{QStringLiteral("exportar")} + declaracion, {}, entorno);
    EXPECT_EQ(r.codigo, 2);
    EXPECT_EQ(r.errores, QStringList{QStringLiteral("no hay usuario: use --usuario o configure SysUser en %1TMP/QL000.INI")
                                         .arg(familia.carpeta())});
}

}  // namespace
