#pragma once
// Declarations typed as a user types them, opened again from the store, and what the form
// shows of them, for the tests of saving and loading.
#include "comun/base_prueba.h"
#include "form931/frm931.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QMap>
#include <QPair>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVector>

#include <ostream>

// Failures print texts as texts.
static inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

namespace prueba931 {

// A declaration of the general regime with every box a user can type filled, the payment
// block answered, the suspension asked for, and the accountant and legal representative given.
inline EntradaDeclaracion declaracionCompleta(const QString& regimen = QStringLiteral("4"))
{
    EntradaDeclaracion e;
    e.ruc = DatosDemo::kRucAndina;
    auto& c = e.casillas;
    c[QStringLiteral("028")] = QStringLiteral("4445566");
    c[QStringLiteral("056")] = regimen;
    c[QStringLiteral("605")] = QStringLiteral("0");
    c[QStringLiteral("606")] = QStringLiteral("1");
    c[QStringLiteral("607")] = QStringLiteral("0");
    c[QStringLiteral("608")] = QStringLiteral("1");
    c[QStringLiteral("611")] = QStringLiteral("1");
    c[QStringLiteral("612")] = QStringLiteral("0012345678901");
    c[QStringLiteral("613")] = QStringLiteral("15/05/2024");
    // Balance: assets (the subtractive ones in their boxes), liabilities, equity.
    int valor = 1000;
    for (int n = 500; n <= 530; ++n, valor += 10)
        c[QString::number(n)] = QString::number(valor);
    for (int n = 532; n <= 542; ++n, valor += 10)
        c[QString::number(n)] = QString::number(valor);
    for (int n : {544, 545, 546, 547, 548, 549, 550, 552})
        c[QString::number(n)] = QString::number(valor += 10);
    // Profit and loss, one box of each exclusive pair.
    const QList<QPair<int, int>> ganancias = {{461, 900000}, {462, 15000}, {464, 400000}, {468, 30000},
                                              {469, 45000}, {472, 5000}, {475, 7000}, {476, 3000},
                                              {478, 12000}, {480, 4000}, {481, 2500}, {486, 1000}, {490, 60000}};
    for (const auto& [n, v] : ganancias)
        c[QString::number(n)] = QString::number(v);
    c[QStringLiteral("650")] = QStringLiteral("8000");
    c[QStringLiteral("651")] = QStringLiteral("1500");
    c[QStringLiteral("432")] = QStringLiteral("20000");
    c[QStringLiteral("433")] = QStringLiteral("6000");
    c[QStringLiteral("103")] = QStringLiteral("12000");
    c[QStringLiteral("105")] = QStringLiteral("3000");
    c[QStringLiteral("150")] = QStringLiteral("2000");
    // Complementary information.
    c[QStringLiteral("815")] = QStringLiteral("PEREZ GOMEZ");
    c[QStringLiteral("816")] = QStringLiteral("JUAN CARLOS");
    c[QStringLiteral("209")] = QStringLiteral("15");
    c[QStringLiteral("208")] = DatosDemo::kRucPacifico;
    c[QStringLiteral("211")] = QStringLiteral("12345");
    c[QStringLiteral("817")] = QStringLiteral("RAMOS DIAZ");
    c[QStringLiteral("818")] = QStringLiteral("ANA MARIA");
    c[QStringLiteral("225")] = QStringLiteral("01");
    c[QStringLiteral("226")] = QStringLiteral("40112233");
    return e;
}

// Each regime with the answers of its own page.
inline EntradaDeclaracion declaracionDeRegimen(const QString& regimen)
{
    EntradaDeclaracion e = declaracionCompleta(regimen);
    auto& c = e.casillas;
    if (regimen == QLatin1String("4") || regimen == QLatin1String("8"))
        c[QStringLiteral("813")] = QStringLiteral("0");
    if (regimen == QLatin1String("8")) {
        c[QStringLiteral("251")] = QStringLiteral("1500");
        c[QStringLiteral("252")] = QStringLiteral("700");
        // A balance at 31 July keeps the suspension; the income stays under 300 UIT.
        c[QStringLiteral("461")] = QStringLiteral("90000");
    }
    if (regimen == QLatin1String("1"))
        c[QStringLiteral("200")] = QStringLiteral("20260310");
    if (regimen == QLatin1String("2")) {
        c[QStringLiteral("809")] = QStringLiteral("1");
        c[QStringLiteral("860")] = QStringLiteral("1");
        c[QStringLiteral("811")] = QStringLiteral("1");
        c[QStringLiteral("812")] = QStringLiteral("160101");
    }
    if (regimen == QLatin1String("3")) {
        c[QStringLiteral("601")] = QStringLiteral("1");
        c[QStringLiteral("602")] = QStringLiteral("1");
        c[QStringLiteral("603")] = QStringLiteral("240101");
    }
    if (regimen == QLatin1String("6")) {
        c[QStringLiteral("804")] = QStringLiteral("2");
        c[QStringLiteral("224")] = QStringLiteral("12345678");
        c[QStringLiteral("113")] = QStringLiteral("77777");
    }
    return e;
}

// A declaration that passes every rule of the silent validation.
inline EntradaDeclaracion declaracionConsistente()
{
    EntradaDeclaracion e;
    e.ruc = DatosDemo::kRucAndina;
    auto& c = e.casillas;
    c[QStringLiteral("028")] = QStringLiteral("4445566");
    c[QStringLiteral("056")] = QStringLiteral("4");
    c[QStringLiteral("813")] = QStringLiteral("1");
    c[QStringLiteral("605")] = QStringLiteral("0");
    c[QStringLiteral("606")] = QStringLiteral("0");
    c[QStringLiteral("607")] = QStringLiteral("0");
    c[QStringLiteral("608")] = QStringLiteral("0");
    c[QStringLiteral("500")] = QStringLiteral("1000");
    c[QStringLiteral("532")] = QStringLiteral("400");
    c[QStringLiteral("544")] = QStringLiteral("600");
    return e;
}

// Types the declaration into a new form as "&Nueva" would open it.
inline void teclear(Frm931& frm, EntornoSinPantalla& entorno, const EntradaDeclaracion& e)
{
    reproducirEntrada(frm, entorno, e);
}

// Opens a stored declaration as the working picker does ("&Modificar").
inline void abrirGuardada(Frm931& frm, const QString& ruc, const QString& nombre, const QString& periodo)
{
    Globales& g = G();
    g.gbEnviada = false;
    g.giOpcion = 1;
    g.gsPeriodo = periodo;
    g.gsPeriodoSel = periodo;
    frm.miModo = 1;
    frm.msRuc = ruc;
    frm.msRazon = nombre;
    frm.Form_Load();
    frm.Form_Activate();
}

using Filas = QVector<QPair<QString, QString>>;

// DET rows of a working declaration, in the order written.
inline Filas filasDet(const QString& ruc, const QString& periodo)
{
    QSqlQuery q = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET WHERE DOC_ID_D=? AND TIP_DOC_D=6"
                                          " AND PERIODO=? AND FORMULARIO='0931' ORDER BY rowid"),
                           {ruc, periodo});
    Filas filas;
    while (q.next())
        filas.append({q.value(0).toString(), q.value(1).toString()});
    return filas;
}

// The rows that differ between two readings, as "casilla: before -> after".
inline std::string diferenciasDet(const Filas& antes, const Filas& despues)
{
    QMap<QString, QString> a, d;
    for (const auto& [c, v] : antes)
        a.insert(c, v);
    for (const auto& [c, v] : despues)
        d.insert(c, v);
    QStringList lista;
    QStringList claves = a.keys() + d.keys();
    claves.removeDuplicates();
    claves.sort();
    for (const QString& c : claves)
        if (a.value(c, QStringLiteral("<none>")) != d.value(c, QStringLiteral("<none>")))
            lista << QStringLiteral("%1: '%2' -> '%3'").arg(c, a.value(c, QStringLiteral("<none>")), d.value(c, QStringLiteral("<none>")));
    return lista.join(QLatin1Char('\n')).toStdString();
}

inline QMap<QString, QString> mapaDet(const QString& ruc, const QString& periodo)
{
    QMap<QString, QString> m;
    for (const auto& [c, v] : filasDet(ruc, periodo))
        m.insert(c, v);
    return m;
}

// Every column of the rows of a table for one declaration, as text, in rowid order.
inline QStringList volcado(const QString& tabla, const QString& ruc, const QString& periodo)
{
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM ") + tabla
                               + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO=? ORDER BY rowid"),
                           {ruc, periodo});
    QStringList filas;
    while (q.next()) {
        QStringList columnas;
        for (int i = 0; i < q.record().count(); ++i)
            columnas << q.value(i).toString();
        filas << columnas.join(QLatin1Char('|'));
    }
    return filas;
}

inline int contar(const QString& tabla, const QString& ruc, const QString& periodo)
{
    return escalar(QStringLiteral("SELECT count(*) FROM ") + tabla + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO=?"),
                   {ruc, periodo})
        .toInt();
}

// What the form shows of a declaration: boxes, answers, lists, texts and captions.
inline QMap<QString, QString> pantalla(const Frm931& f)
{
    QMap<QString, QString> m;
    for (int n : f.mvCasillas)
        m.insert(Frm931::nombreCasilla(n), f.txt(n));
    auto grupo = [&](const char* nombre, const GrupoOpciones& g) {
        m.insert(QString::fromLatin1(nombre), QString::number(g.seleccionado()));
    };
    grupo("optRenta", f.optRenta);
    grupo("OptPersona", f.OptPersona);
    grupo("OptUbicAmazonia", f.OptUbicAmazonia);
    grupo("OptLeyAmazonia", f.OptLeyAmazonia);
    grupo("OptDomFiscal", f.OptDomFiscal);
    grupo("OptZona", f.OptZona);
    grupo("OptActividad", f.OptActividad);
    grupo("OptFrontera", f.OptFrontera);
    grupo("OptConvEstab", f.OptConvEstab);
    grupo("OptInicio", f.OptInicio);
    grupo("OptAnterior", f.OptAnterior);
    grupo("OptPrecedente", f.OptPrecedente);
    grupo("OptSuspPC", f.OptSuspPC);
    m.insert(QStringLiteral("CboBalance"), f.CboBalance.Text());
    m.insert(QStringLiteral("CmbZona"), f.CmbZona.Text());
    m.insert(QStringLiteral("cboTipDocRepLegal"), f.cboTipDocRepLegal.Text());
    m.insert(QStringLiteral("TxtRazon"), f.TxtRazon.Text);
    m.insert(QStringLiteral("TxtTelefono"), f.TxtTelefono.Text);
    m.insert(QStringLiteral("MkePeriodo"), f.MkePeriodo.Text);
    m.insert(QStringLiteral("TxtUbigeo"), f.TxtUbigeo.Text);
    m.insert(QStringLiteral("TxtUbigeo2"), f.TxtUbigeo2.Text);
    m.insert(QStringLiteral("TxtNumOrdenF2305"), f.TxtNumOrdenF2305.Text);
    m.insert(QStringLiteral("txtNumRes"), f.txtNumRes.Text);
    m.insert(QStringLiteral("mkefecnot"), f.mkefecnot.Text);
    m.insert(QStringLiteral("TxtNombreA"), f.TxtNombreA.Text);
    m.insert(QStringLiteral("TxtNombreN"), f.TxtNombreN.Text);
    m.insert(QStringLiteral("txtApellidoRL"), f.txtApellidoRL.Text);
    m.insert(QStringLiteral("txtNombreRL"), f.txtNombreRL.Text);
    m.insert(QStringLiteral("LblSistema"), f.LblSistema.Caption);
    for (auto it = f.lblTab2.cbegin(); it != f.lblTab2.cend(); ++it)
        m.insert(QStringLiteral("lblTab2(%1)").arg(it.key()), it.value().Caption);
    m.insert(QStringLiteral("msTitBalance1"), f.msTitBalance1);
    m.insert(QStringLiteral("msTitBalance2"), f.msTitBalance2);
    m.insert(QStringLiteral("msTitGanancias"), f.msTitGanancias);
    return m;
}

// The entries that differ between two views of the form, as "name: before -> after".
inline QStringList diferencias(const QMap<QString, QString>& antes, const QMap<QString, QString>& despues)
{
    QStringList d;
    for (auto it = antes.cbegin(); it != antes.cend(); ++it)
        if (despues.value(it.key()) != it.value())
            d << QStringLiteral("%1: '%2' -> '%3'").arg(it.key(), it.value(), despues.value(it.key()));
    return d;
}

}  // namespace prueba931
