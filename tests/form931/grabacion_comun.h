#pragma once
// Declarations typed as a user types them, opened again from the store, and what the form
// shows of them, for the tests of saving and loading.
#include "comun/base_prueba.h"
#include "form931/frm931.h"
#include "form931/guion.h"
#include "shell/globales.h"
#include "store/base.h"

#include <QMap>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

namespace prueba931 {

// "028=4445566 056=4 ..." as the casillas of an input for the demo taxpayer ANDINA.
inline EntradaDeclaracion entrada(const QString& pares)
{
    EntradaDeclaracion e;
    e.ruc = DatosDemo::kRucAndina;
    for (const QString& par : pares.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        e.casillas.insert(par.section(QLatin1Char('='), 0, 0), par.section(QLatin1Char('='), 1).replace(QLatin1Char('_'), QLatin1Char(' ')));
    return e;
}

// Every box a user can type (one of each exclusive pair), the payment block answered for
// 31 July with the suspension, accountant and legal representative, under a regime with the
// answers of its own page.
inline EntradaDeclaracion declaracionDeRegimen(const QString& regimen = QStringLiteral("4"))
{
    EntradaDeclaracion e = entrada(QStringLiteral(
        "028=4445566 605=0 606=1 607=0 608=1 611=1 612=0012345678901 613=15/05/2024 461=900000 462=15000 464=400000 "
        "468=30000 469=45000 472=5000 475=7000 476=3000 478=12000 480=4000 481=2500 486=1000 490=60000 650=8000 651=1500 "
        "432=20000 433=6000 103=12000 105=3000 150=2000 815=PEREZ_GOMEZ 816=JUAN_CARLOS 209=15 208=20500004569 211=12345 "
        "817=RAMOS_DIAZ 818=ANA_MARIA 225=01 226=40112233"));
    int valor = 1000;
    for (int n = 500; n <= 553; ++n)
        if (n != 531 && n != 543 && n != 551 && n != 553)
            e.casillas.insert(QString::number(n), QString::number(valor += 10));
    static const QMap<QString, QString> propias = {
        {QStringLiteral("4"), QStringLiteral("813=0")},
        {QStringLiteral("8"), QStringLiteral("813=0 251=1500 252=700 461=90000")},
        {QStringLiteral("1"), QStringLiteral("200=20260310")},
        {QStringLiteral("2"), QStringLiteral("809=1 860=1 811=1 812=160101")},
        {QStringLiteral("3"), QStringLiteral("601=1 602=1 603=240101")},
        {QStringLiteral("6"), QStringLiteral("804=2 224=12345678 113=77777")}};
    e.casillas.insert(entrada(propias.value(regimen)).casillas);
    e.casillas.insert(QStringLiteral("056"), regimen);
    return e;
}

// A declaration that passes every rule of the silent validation (balance at 30 April).
inline EntradaDeclaracion declaracionConsistente()
{
    return entrada(QStringLiteral("028=4445566 056=4 813=1 605=0 606=0 607=0 608=0 500=1000 532=400 544=600"));
}

// Opens a stored declaration as the working picker does ("&Modificar").
inline void abrirGuardada(Frm931& frm, const QString& periodo, const QString& ruc = DatosDemo::kRucAndina,
                          const QString& nombre = DatosDemo::kNombreAndina)
{
    Globales& g = G();
    g.gbEnviada = false;
    g.giOpcion = 1;
    g.gsPeriodo = g.gsPeriodoSel = periodo;
    frm.miModo = 1;
    frm.msRuc = ruc;
    frm.msRazon = nombre;
    frm.Form_Load();
    frm.Form_Activate();
}

// Rows of a table for one declaration, every column as text, in the order written.
inline QStringList volcado(const QString& tabla, const QString& periodo, const QString& ruc = DatosDemo::kRucAndina)
{
    QSqlQuery q = ejecutar(QStringLiteral("SELECT * FROM ") + tabla + QStringLiteral(" WHERE DOC_ID_D=? AND PERIODO=? ORDER BY rowid"),
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

// DET of a declaration as casilla -> i_valor.
inline QMap<QString, QString> mapaDet(const QString& periodo, const QString& ruc = DatosDemo::kRucAndina)
{
    QMap<QString, QString> m;
    QSqlQuery q = ejecutar(QStringLiteral("SELECT CASILLA, I_VALOR FROM DET WHERE DOC_ID_D=? AND PERIODO=?"), {ruc, periodo});
    while (q.next())
        m.insert(q.value(0).toString(), q.value(1).toString());
    return m;
}

inline int contar(const QString& tabla)
{
    return escalar(QStringLiteral("SELECT count(*) FROM ") + tabla).toInt();
}

// What the form shows of a declaration: boxes, answers, lists, texts and captions.
inline QMap<QString, QString> pantalla(const Frm931& f)
{
    QMap<QString, QString> m;
    for (int n : f.mvCasillas)
        m.insert(Frm931::nombreCasilla(n), f.txt(n));
    const QList<QPair<const char*, const GrupoOpciones*>> grupos = {
        {"optRenta", &f.optRenta}, {"OptPersona", &f.OptPersona}, {"OptUbicAmazonia", &f.OptUbicAmazonia},
        {"OptLeyAmazonia", &f.OptLeyAmazonia}, {"OptDomFiscal", &f.OptDomFiscal}, {"OptZona", &f.OptZona},
        {"OptActividad", &f.OptActividad}, {"OptFrontera", &f.OptFrontera}, {"OptConvEstab", &f.OptConvEstab},
        {"OptInicio", &f.OptInicio}, {"OptAnterior", &f.OptAnterior}, {"OptPrecedente", &f.OptPrecedente},
        {"OptSuspPC", &f.OptSuspPC}, {"OptRectifica", &f.OptRectifica}};
    for (const auto& [nombre, g] : grupos)
        m.insert(QString::fromLatin1(nombre), QString::number(g->seleccionado()));
    const QList<QPair<const char*, const Caja*>> cajas = {
        {"TxtRazon", &f.TxtRazon}, {"TxtTelefono", &f.TxtTelefono}, {"MkePeriodo", &f.MkePeriodo},
        {"TxtUbigeo", &f.TxtUbigeo}, {"TxtUbigeo2", &f.TxtUbigeo2}, {"TxtNumOrdenF2305", &f.TxtNumOrdenF2305},
        {"txtNumRes", &f.txtNumRes}, {"mkefecnot", &f.mkefecnot}, {"TxtNombreA", &f.TxtNombreA},
        {"TxtNombreN", &f.TxtNombreN}, {"txtApellidoRL", &f.txtApellidoRL}, {"txtNombreRL", &f.txtNombreRL}};
    for (const auto& [nombre, c] : cajas)
        m.insert(QString::fromLatin1(nombre), c->Text);
    m.insert(QStringLiteral("CboBalance"), f.CboBalance.Text());
    m.insert(QStringLiteral("CmbZona"), f.CmbZona.Text());
    m.insert(QStringLiteral("cboTipDocRepLegal"), f.cboTipDocRepLegal.Text());
    m.insert(QStringLiteral("LblSistema"), f.LblSistema.Caption);
    for (auto it = f.lblTab2.cbegin(); it != f.lblTab2.cend(); ++it)
        m.insert(QStringLiteral("lblTab2(%1)").arg(it.key()), it.value().Caption);
    return m;
}

// The entries that differ between two readings, one "name: 'before' -> 'after'" a line.
inline std::string diferencias(const QMap<QString, QString>& antes, const QMap<QString, QString>& despues)
{
    QStringList claves = antes.keys() + despues.keys(), d;
    claves.removeDuplicates();
    for (const QString& k : claves)
        if (antes.value(k, QStringLiteral("<none>")) != despues.value(k, QStringLiteral("<none>")))
            d << QStringLiteral("%1: '%2' -> '%3'").arg(k, antes.value(k, QStringLiteral("<none>")), despues.value(k, QStringLiteral("<none>")));
    return d.join(QLatin1Char('\n')).toStdString();
}

}  // namespace prueba931
