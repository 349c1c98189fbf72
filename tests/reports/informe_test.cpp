// The declaration report: loading a stored declaration and the spool file it builds, checked
// against frozen files in golden/, figures, blanks and parentheses included
// (F931_REGENERAR_GOLDEN=1 rewrites them; read them before freezing).
#include "comun/base_prueba.h"

#include "basic/errores.h"
#include "reports/informe.h"
#include "reports/spool.h"
#include "shell/globales.h"
#include "store/base.h"
#include "store/funciones.h"

#include "rutas_prueba.h"
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

using Valores = QList<QPair<QString, QString>>;

struct Declaracion {
    const char* nombre;
    QString ruc;
    QString nombreContribuyente;
    QString periodo;
    Valores casillas;
    Valores perdidas;
    QString correl;   // sent when not empty
    QString norden, control;
};

// A balance, results and tax that every reference declaration carries.
Valores cifrasComunes()
{
    return {{"500", "150000"}, {"502", "80000"},  {"508", "-5000"},   {"509", "120000"}, {"523", "300000"},
            {"524", "-60000"}, {"531", "585000"}, {"533", "12000"},   {"535", "45000"},  {"540", "100000"},
            {"543", "157000"}, {"544", "300000"}, {"549", "20000"},   {"550", "78000"},  {"552", "30000"},
            {"554", "428000"}, {"555", "585000"}, {"461", "500000"},  {"463", "500000"}, {"464", "-300000"},
            {"466", "200000"}, {"468", "-50000"}, {"469", "-80000"},  {"470", "70000"},  {"472", "-10000"},
            {"473", "5000"},   {"475", "2000"},   {"484", "67000"},   {"487", "67000"},  {"490", "-20100"},
            {"492", "46900"},  {"100", "67000"},  {"103", "3000"},    {"106", "70000"},  {"110", "70000"},
            {"113", "21000"},  {"250", "21000"},  {"251", "-15000"},  {"253", "6000"},   {"432", "1000"},
            {"433", "500"},    {"028", "4215566"}, {"815", "PEREZ GOMEZ"}, {"816", "JUAN CARLOS"}, {"209", "5"},
            {"208", "10101010101"}, {"211", "12345"}, {"225", "1"}, {"226", "40404040"}, {"817", "QUISPE ROJAS"},
            {"818", "ANA MARIA"}};
}

Valores con(Valores base, const Valores& mas)
{
    base += mas;
    return base;
}

Valores perdidas(int n)
{
    Valores v;
    for (int i = 0; i < n; ++i)
        v.append({QString::number(2001 + i), QString::number(1000 * (i + 1) + 7)});
    return v;
}

const QList<Declaracion>& referencias()
{
    static const QList<Declaracion> lista{
        {"general_2012", DatosDemo::kRucAndina, DatosDemo::kNombreAndina, "201206",
         con(cifrasComunes(), {{"056", "4"}, {"813", "0"}, {"605", "0"}, {"607", "1"}, {"606", "0"}, {"608", "1"},
                               {"609", "A"}, {"610", "0.0420"}}),
         perdidas(3)},
        {"mype_2013", DatosDemo::kRucPacifico, DatosDemo::kNombrePacifico, "201304",
         con(cifrasComunes(), {{"056", "8"}, {"605", "1"}, {"608", "0"}, {"610", "0.0125"}, {"650", "3000"}, {"651", "-200"}}),
         {}},
        {"agrario_2014", DatosDemo::kRucNorte, DatosDemo::kNombreNorte, "201401",
         con(cifrasComunes(), {{"056", "1"}, {"200", "20140115"}, {"605", "0"}, {"607", "0"}, {"606", "1"}, {"608", "1"},
                               {"609", "B"}, {"610", "1.50"}, {"650", "0"}}),
         perdidas(1)},
        {"amazonia_2012", DatosDemo::kRucAmazonia, DatosDemo::kNombreAmazonia, "201201",
         con(cifrasComunes(), {{"056", "2"}, {"810", "1"}, {"809", "0"}, {"860", "1"}, {"811", "0"}, {"812", "160101"},
                               {"605", "1"}, {"608", "0"}, {"609", "B"}, {"610", "2.00"}}),
         {}},
        {"frontera_2013", DatosDemo::kRucPersona, DatosDemo::kNombrePersona, "201308",
         con(cifrasComunes(), {{"056", "3"}, {"601", "1"}, {"602", "0"}, {"603", "230101"}, {"608", "1"}, {"610", "0.0300"}}),
         {}},
        {"estabilidad_2012", DatosDemo::kRucAndina, DatosDemo::kNombreAndina, "201201",
         con(cifrasComunes(), {{"056", "6"}, {"804", "2"}, {"224", "123456"}, {"605", "0"}, {"607", "0"}, {"606", "0"},
                               {"608", "0"}, {"609", "A"}, {"610", "0.0150"}}),
         {}},
        {"enviada_2013", DatosDemo::kRucPacifico, DatosDemo::kNombrePacifico, "201306",
         con(cifrasComunes(), {{"056", "4"}, {"813", "1"}, {"605", "1"}, {"608", "1"}, {"609", "A"}, {"610", "0.0321"}}),
         perdidas(2), "02", "123456789", "987654"},
        {"diez_perdidas", DatosDemo::kRucNorte, DatosDemo::kNombreNorte, "201308",
         {{"056", "9"}, {"100", "1000"}, {"610", "0.0001"}}, perdidas(10)},
        {"sin_regimen", DatosDemo::kRucNorte, DatosDemo::kNombreNorte, "201206", {{"100", "1000"}}, {}},
    };
    return lista;
}

// Stored as the window stores it: a working declaration, or a sent one (H tables, CORREL).
void guardar(const Declaracion& d)
{
    const bool enviada = !d.correl.isEmpty();
    const QString h = enviada ? QStringLiteral("H") : QString();
    const QString correl = enviada ? QStringLiteral("CORREL, ") : QString();
    QVariantList clave{d.ruc, d.periodo};
    if (enviada)
        clave << d.correl;
    auto insertar = [&](const QString& tabla, const QString& columnas, const QVariantList& valores) {
        QStringList marcas(clave.size() + valores.size(), QStringLiteral("?"));
        ejecutar(QStringLiteral("INSERT INTO %1%2 (TIP_DOC_D, FORMULARIO, DOC_ID_D, PERIODO, %3%4) VALUES (6, '0931', %5)")
                     .arg(h, tabla, correl, columnas, marcas.join(QLatin1Char(','))),
                 clave + valores);
    };
    if (enviada)
        insertar(QStringLiteral("CAB"), QStringLiteral("ESTADO, FEC_ENV, NORDEN, CONTROL"),
                 {1, QStringLiteral("2013-07-20"), d.norden, d.control});
    else
        insertar(QStringLiteral("CAB"), QStringLiteral("ESTADO, RECTIFICA"), {0, QStringLiteral("0")});
    for (const auto& [casilla, valor] : d.casillas)
        insertar(QStringLiteral("DET"), QStringLiteral("CASILLA, I_VALOR"), {casilla, valor});
    for (const auto& [anho, importe] : d.perdidas)
        insertar(QStringLiteral("F0931_PTCEA"), QStringLiteral("Anho, Importe"), {anho, importe});
}

// What frmImprimir does with the row picked: the report globals, the load, a new spool file.
QString construir(const Declaracion& d)
{
    Globales& g = G();
    const bool enviada = !d.correl.isEmpty();
    g.gbImpEnviada = g.gbEnviada = enviada;
    g.gbRptEnviada = enviada ? -1 : 0;
    g.gsRucRpt = d.ruc;
    g.gsPeriodoRpt = d.periodo;
    g.gsNombreRpt = d.nombreContribuyente;
    g.gsCorrelRpt = d.correl;
    g.gsControlRpt = d.control;
    g.gsOrdenRpt = d.norden;
    pConsulta();
    g.gnTipoRpt = 2;
    g.gsDestinoRpt = QStringLiteral("ARCHIVO");
    const QString nombre = pRegistraSpool(kCodigoReporte, 6, g.gsRucRpt);
    g.gsRutaRpt = rutaSpool(nombre);
    EXPECT_TRUE(pImprimeReporte(QString()));
    return nombre;
}

QByteArray contenido(const QString& ruta)
{
    QFile f(ruta);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QString carpetaGolden() { return QStringLiteral(F931_DIR_PRUEBAS "/reports/golden/"); }

class Informe : public PruebaConBase {};

} // namespace

TEST_F(Informe, DeclaracionesDeReferenciaContraArchivosCongelados)
{
    const bool regenerar = qEnvironmentVariableIsSet("F931_REGENERAR_GOLDEN");
    for (const Declaracion& d : referencias()) {
        SCOPED_TRACE(d.nombre);
        guardar(d);
        const QByteArray hecho = contenido(rutaSpool(construir(d)));
        const QString golden = carpetaGolden() + QString::fromLatin1(d.nombre) + QStringLiteral(".spool");
        if (regenerar) {
            QDir().mkpath(carpetaGolden());
            QFile f(golden);
            ASSERT_TRUE(f.open(QIODevice::WriteOnly));
            f.write(hecho);
            continue;
        }
        const QByteArray esperado = contenido(golden);
        ASSERT_FALSE(esperado.isEmpty()) << golden.toStdString();
        if (hecho != esperado) {
            const QList<QByteArray> a = hecho.split('\n'), b = esperado.split('\n');
            for (int i = 0; i < qMin(a.size(), b.size()); ++i)
                if (a[i] != b[i]) {
                    ADD_FAILURE() << "line " << i + 1 << "\n  built:    " << a[i].toStdString()
                                  << "\n  expected: " << b[i].toStdString();
                    break;
                }
            EXPECT_EQ(a.size(), b.size());
        }
    }
}

TEST_F(Informe, LaUndecimaPerdidaNoSeImprime)
{
    Declaracion diez = referencias()[7];
    Declaracion once = diez;
    once.ruc = DatosDemo::kRucAndina;
    once.nombreContribuyente = diez.nombreContribuyente;   // same heading
    once.perdidas = perdidas(11);
    guardar(diez);
    guardar(once);
    const QByteArray a = contenido(rutaSpool(construir(diez)));
    QByteArray b = contenido(rutaSpool(construir(once)));
    b.replace(DatosDemo::kRucAndina.toLatin1(), DatosDemo::kRucNorte.toLatin1());
    EXPECT_EQ(a, b);
    EXPECT_FALSE(a.contains("2011"));
    // Rows 6 to 10 go in the right block: ANHO at 4000 + 250, under a second head.
    EXPECT_EQ(a.count("pPos|4250|"), 5);
    EXPECT_EQ(a.count("pPos|4200|"), 1);
}

TEST_F(Informe, ConsultaLlenaCasillasYTextosNombrados)
{
    Declaracion d{"x", DatosDemo::kRucAndina, DatosDemo::kNombreAndina, "201306",
                  {{"056", "4"}, {"817", "ROJAS"}, {"818", "ANA"}, {"610", "0.0100"}, {"901", "no"}, {"100", "5"}}, {}};
    guardar(d);
    ejecutar(QStringLiteral("INSERT INTO ACTA (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, PER_PAG, tipo_asist) "
                            "VALUES (6,?,?,'0931','2013','4')"),
             {d.ruc, d.periodo});
    Globales& g = G();
    g.gaCasillas[100] = QStringLiteral("vieja");
    g.gaNombradasRpt.insert(860, QStringLiteral("de otra declaración"));
    g.gsRucRpt = d.ruc;
    g.gsPeriodoRpt = d.periodo;
    pConsulta();
    EXPECT_EQ(g.gaCasillas[56], QStringLiteral("4"));
    EXPECT_EQ(g.gaCasillas[100], QStringLiteral("5"));
    EXPECT_EQ(g.gaCasillas[101], QString());
    EXPECT_EQ(g.gaNombradasRpt.value(610), QStringLiteral("0.0100"));
    EXPECT_FALSE(g.gaNombradasRpt.contains(860));
    EXPECT_EQ(g.gsRepresentanteRpt, QStringLiteral("ROJAS ANA"));
    EXPECT_EQ(g.gsTelefonoRpt, QStringLiteral(" "));   // no casilla 28: one blank
    EXPECT_EQ(g.gsAsistenteRpt, QStringLiteral(" "));  // the year slice never matches the period
}

TEST_F(Informe, FalloAlEscribirSeAvisaConTituloImpresion)
{
    G().gsDestinoRpt = QStringLiteral("ARCHIVO");
    G().gnTipoRpt = 2;
    G().gsRutaRpt = G().gsPathRpt + QStringLiteral("/no/existe/x.PRN");
    EXPECT_FALSE(pImprimeReporte(QString()));
    ASSERT_EQ(familia.respondedor().mostrados.size(), 1);
    const MensajeMostrado& m = familia.respondedor().mostrados[0];
    EXPECT_TRUE(m.texto.startsWith(QStringLiteral("Error Técnico : (75) "))) << m.texto.toStdString();
    EXPECT_EQ(m.titulo, QStringLiteral("Impresión"));
    EXPECT_EQ(m.flags, 16);
    EXPECT_FALSE(archivoRptAbierto());
}
