// The declaration form's controls with their design state, the box array's access, focus and
// the window's tab order.
#include "form931/frm931.h"

#include "basic/errores.h"
#include "basic/formato.h"
#include "basic/texto.h"
#include "family/cutilqvl.h"
#include "shell/globales.h"

#include <QHash>

#include <algorithm>

namespace {

GrupoOpciones grupo(std::initializer_list<QString> captions)
{
    GrupoOpciones g;
    for (const QString& c : captions)
        g.b.append(BotonOpcion{c, false, true, true});
    return g;
}

// One stop of the tab order: the control, the pages that hold it and the frames around it
// (outermost first).
struct Parada {
    QString control;
    int paginaSSTab1;      // -1: outside the tabs
    QString subTab;        // "SSTab2", "SSTab3", "SSTab4" or ""
    int paginaSub;
    QStringList marcos;
};

QString casilla(int n) { return Frm931::nombreCasilla(n); }

// The window's tab order, page by page as the window shows them.
const QVector<Parada>& paradas()
{
    static const QVector<Parada> v = [] {
        QVector<Parada> p;
        const QString s2 = QStringLiteral("SSTab2"), s3 = QStringLiteral("SSTab3"), s4 = QStringLiteral("SSTab4");
        auto add = [&p](const QString& c, int p1, const QString& sub, int ps, const QStringList& m) {
            p.append(Parada{c, p1, sub, ps, m});
        };
        // Identification: general data.
        add(QStringLiteral("CmbRuc"), 0, s2, 0, {QStringLiteral("Frame11")});
        add(QStringLiteral("TxtTelefono"), 0, s2, 0, {QStringLiteral("Frame11")});
        add(QStringLiteral("optRenta"), 0, s2, 0, {QStringLiteral("Frame17")});
        add(QStringLiteral("OptRectifica"), 0, s2, 0, {QStringLiteral("Frame9")});
        // Identification: the regime's details.
        add(QStringLiteral("OptPersona"), 0, s2, 1, {QStringLiteral("Frame_General")});
        add(QStringLiteral("MkePeriodo"), 0, s2, 1, {QStringLiteral("Frame15")});
        add(QStringLiteral("OptUbicAmazonia"), 0, s2, 1, {QStringLiteral("Frame21")});
        add(QStringLiteral("OptLeyAmazonia"), 0, s2, 1, {QStringLiteral("Frame19")});
        add(QStringLiteral("OptDomFiscal"), 0, s2, 1, {QStringLiteral("Frame20"), QStringLiteral("Frame28")});
        add(QStringLiteral("OptZona"), 0, s2, 1, {QStringLiteral("Frame20"), QStringLiteral("Frame29")});
        add(QStringLiteral("CmdZona1"), 0, s2, 1, {QStringLiteral("Frame20")});
        add(QStringLiteral("OptActividad"), 0, s2, 1, {QStringLiteral("Frame13")});
        add(QStringLiteral("OptFrontera"), 0, s2, 1, {QStringLiteral("Frame16")});
        add(QStringLiteral("CmdZona2"), 0, s2, 1, {QStringLiteral("Frame16")});
        add(QStringLiteral("OptConvEstab"), 0, s2, 1, {QStringLiteral("Frame14")});
        add(QStringLiteral("TxtNumOrdenF2305"), 0, s2, 1, {QStringLiteral("Frame14")});
        // Identification: payment block.
        add(QStringLiteral("OptInicio"), 0, s2, 2, {QStringLiteral("Frame4")});
        add(QStringLiteral("OptPrecedente"), 0, s2, 2, {QStringLiteral("Frame_ejercicio"), QStringLiteral("Frame_precedente")});
        add(QStringLiteral("OptAnterior"), 0, s2, 2, {QStringLiteral("Frame_ejercicio"), QStringLiteral("Frame_anterior")});
        add(QStringLiteral("CboBalance"), 0, s2, 2, {QStringLiteral("Frame18")});
        add(QStringLiteral("OptSuspPC"), 0, s2, 2, {QStringLiteral("FrameSusPC")});
        add(QStringLiteral("txtNumRes"), 0, s2, 2, {QStringLiteral("FrameSusPC")});
        add(QStringLiteral("mkefecnot"), 0, s2, 2, {QStringLiteral("FrameSusPC")});
        // Financial statements: assets on two stops of the scroller, liabilities and equity,
        // profit and loss; the determination of the new coefficient, and the MYPE projection;
        // the accountant and the legal representative. Each box stands after the list that
        // fills it.
        const struct {
            const char* marco;
            int pagina;
            const char* sub;
            int paginaSub;
            QStringList marcos;
            QStringList antes;
        } marcosCasillas[] = {
            {"Frame26", 1, "SSTab3", 0, {QStringLiteral("frame1(1)"), QStringLiteral("Frame26")}, {}},
            {"Frame34", 1, "SSTab3", 0, {QStringLiteral("frame1(1)"), QStringLiteral("Frame34")}, {}},
            {"Frame35", 1, "SSTab3", 1, {QStringLiteral("frame1(6)"), QStringLiteral("Frame35")}, {}},
            {"Frame36", 1, "SSTab3", 1, {QStringLiteral("frame1(6)"), QStringLiteral("Frame36")}, {}},
            {"frame1(7)", 1, "SSTab3", 2, {QStringLiteral("frame1(7)")}, {}},
            {"frame1(2)", 2, "", -1, {QStringLiteral("frame1(2)")}, {}},
            {"frmMype", 2, "", -1, {QStringLiteral("frame1(2)"), QStringLiteral("frmMype")}, {}},
            {"Frame6", 3, "SSTab4", 0, {QStringLiteral("frame1(3)"), QStringLiteral("frame1(5)"), QStringLiteral("Frame6")},
             {QStringLiteral("TxtNombreA"), QStringLiteral("TxtNombreN")}},
            {"Frame7", 3, "SSTab4", 0, {QStringLiteral("frame1(3)"), QStringLiteral("frame1(5)"), QStringLiteral("Frame7")},
             {QStringLiteral("txtApellidoRL"), QStringLiteral("txtNombreRL")}},
        };
        for (const auto& m : marcosCasillas) {
            const QString sub = QString::fromLatin1(m.sub);
            for (const QString& c : m.antes)
                add(c, m.pagina, sub, m.paginaSub, m.marcos);
            QVector<const DefCasilla*> cajas = casillasDelMarco(m.marco);
            // In the form's order, which is the table's.
            std::sort(cajas.begin(), cajas.end(), [](const DefCasilla* a, const DefCasilla* b) { return a < b; });
            for (const DefCasilla* d : cajas) {
                if (*d->control)
                    add(QString::fromLatin1(d->control), m.pagina, sub, m.paginaSub, m.marcos);
                add(casilla(d->numero), m.pagina, sub, m.paginaSub, m.marcos);
            }
        }
        for (int i = 0; i < 3; ++i)
            add(QStringLiteral("cmdPerdida(%1)").arg(i), 3, s4, 1, {QStringLiteral("frame1(3)"), QStringLiteral("Frame2")});
        // Outside the tabs.
        add(QStringLiteral("txtOrden"), -1, QString(), -1, {});
        add(QStringLiteral("txtverifica"), -1, QString(), -1, {});
        add(QStringLiteral("CmdValidar"), -1, QString(), -1, {});
        add(QStringLiteral("CmdGrabar"), -1, QString(), -1, {});
        add(QStringLiteral("cmdCancelar"), -1, QString(), -1, {});
        return p;
    }();
    return v;
}

const QHash<QString, int>& indiceParadas()
{
    static const QHash<QString, int> h = [] {
        QHash<QString, int> m;
        for (int i = 0; i < paradas().size(); ++i)
            m.insert(paradas()[i].control, i);
        return m;
    }();
    return h;
}

// "OptPrecedente(0)" -> "OptPrecedente": an option button stands where its group stands.
QString sinIndice(const QString& control)
{
    const int p = control.indexOf(QLatin1Char('('));
    if (p < 0 || control.startsWith(QLatin1String("TxtValor")) || control.startsWith(QLatin1String("cmdPerdida")))
        return control;
    return control.left(p);
}

int indiceDe(const QString& control, int& boton)
{
    boton = -1;
    const int p = control.indexOf(QLatin1Char('('));
    if (p < 0)
        return -1;
    boton = control.mid(p + 1, control.size() - p - 2).toInt();
    return boton;
}

}  // namespace

Frm931::Frm931(EntornoFrm931* entorno) : entorno(entorno)
{
    crearControles();
}

Frm931::~Frm931() = default;

void Frm931::crearControles()
{
    // Boxes: white for entries, grey and locked for computed ones (113 stays unlocked: its
    // state follows the regime), 477 in the assistant colour; 473 takes it at load from 2013.
    for (int n : ordenCasillas()) {
        const DefCasilla* d = defCasilla(n);
        Caja c;
        c.MaxLength = d->largo;
        if (d->tipo == TipoCasilla::Calculada) {
            c.BackColor = kGris;
            c.Locked = (n != 113);
        }
        if (n == 477)
            c.BackColor = kAsistente;
        // The carriers of the annex stand below the visible part of their page.
        c.Visible = qstrcmp(d->marco, "portadores") != 0;
        TxtValor.insert(n, c);
    }
    // The accountant's zone code is taken from CmbZona, never typed.
    TxtValor[209].Locked = true;

    // Identification.
    TxtNumRuc.Locked = true;
    TxtNumRuc.Visible = false;
    TxtRazon.Locked = true;
    TxtRazon.BackColor = kGris;
    TxtTelefono.MaxLength = 9;
    TxtEjercicio.Locked = true;
    TxtEjercicio.BackColor = kGris;
    TxtNumOrden.Locked = true;
    TxtNumOrden.BackColor = kGris;
    optRenta = grupo({QStringLiteral("General"), QStringLiteral("Agrario"), QStringLiteral("Amazonía o Zona de Selva"),
                      QStringLiteral("Zona de frontera"), QStringLiteral("Convenio de estabilidad"),
                      QStringLiteral("MYPE Tributario")});
    OptRectifica = grupo({QStringLiteral("No"), QStringLiteral("Si")});

    // Regime details: every frame shut until a regime is chosen.
    OptPersona = grupo({QStringLiteral("Persona Jurídica"), QStringLiteral("Persona Natural")});
    MkePeriodo.Mask = QStringLiteral("__/__/____");
    MkePeriodo.Text = MkePeriodo.Mask;
    MkePeriodo.Enabled = false;
    MkePeriodo.BackColor = kGris;
    OptUbicAmazonia = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    OptLeyAmazonia = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    OptDomFiscal = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    OptDomFiscal.habilitar(false);
    OptZona = grupo({QStringLiteral("Zona 1"), QStringLiteral("Zona 2")});
    OptZona.habilitar(false);
    TxtUbigeo.Locked = true;
    TxtUbigeo2.Locked = true;
    CmdZona1 = Boton{QStringLiteral("Ubigeo"), false};
    CmdZona2 = Boton{QStringLiteral("Ubigeo"), false};
    OptActividad = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    OptFrontera = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    OptFrontera.habilitar(false);
    OptConvEstab = grupo({QString(), QStringLiteral("Estabilidad tributaria"),
                          QStringLiteral("Garantías y medidas de  promoción a la inversión"),
                          QStringLiteral("Estabilidad jurídica"),
                          QStringLiteral("Contratos de licencia de  exploración y explotación  de hidrocarburos")});
    OptConvEstab.b[0].Enabled = false;   // element 0 exists only as the "none" of the group
    OptConvEstab.b[0].Visible = false;
    TxtNumOrdenF2305.Enabled = false;
    TxtNumOrdenF2305.BackColor = kGris;
    TxtNumOrdenF2305.MaxLength = 8;

    // Payment block: the result questions and the balance date open as the answers come.
    OptInicio = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    OptAnterior = grupo({QStringLiteral("Utilidad"), QStringLiteral("Pérdida")});
    OptAnterior.habilitar(false);
    OptPrecedente = grupo({QStringLiteral("Utilidad"), QStringLiteral("Pérdida")});
    OptPrecedente.habilitar(false);
    CboBalance.Enabled = false;
    CboBalance.BackColor = kGris;
    OptSuspPC = grupo({QStringLiteral("No"), QStringLiteral("Si")});
    txtNumRes.MaxLength = 13;
    txtNumRes.Enabled = false;
    txtNumRes.BackColor = kGris;
    mkefecnot.Mask = QStringLiteral("__/__/____");
    mkefecnot.Text = mkefecnot.Mask;
    mkefecnot.Enabled = false;
    mkefecnot.BackColor = kGris;

    // Complementary information.
    for (Caja* c : {&TxtNombreA, &TxtNombreN, &txtApellidoRL, &txtNombreRL})
        c->MaxLength = 30;

    // Order-number mode.
    txtOrden.Visible = false;
    txtverifica.Visible = false;
    lblNorden = Etiqueta{QStringLiteral("Nro. de Orden"), true, false};
    lblGuion = Etiqueta{QStringLiteral("-"), true, false};

    // Frames.
    const QList<QPair<QString, QString>> listaMarcos{
        {QStringLiteral("Frame11"), QStringLiteral("Contribuyente")},
        {QStringLiteral("Frame17"), QStringLiteral("Régimen tributario")},
        {QStringLiteral("Frame9"), QStringLiteral("Declaración rectificatoria")},
        {QStringLiteral("Frame_General"), QStringLiteral("Tipo de persona")},
        {QStringLiteral("Frame15"), QStringLiteral("Ley de Promoción Agraria")},
        {QStringLiteral("Frame19"), QStringLiteral("Ley de Amazonía")},
        {QStringLiteral("Frame21"), QStringLiteral("Ubicación en la Amazonía")},
        {QStringLiteral("Frame20"), QStringLiteral("Domicilio fiscal")},
        {QStringLiteral("Frame28"), QString()},
        {QStringLiteral("Frame29"), QString()},
        {QStringLiteral("Frame13"), QStringLiteral("Actividad industrial")},
        {QStringLiteral("Frame16"), QStringLiteral("Zona de frontera")},
        {QStringLiteral("Frame14"), QStringLiteral("Convenio de estabilidad")},
        {QStringLiteral("Frame4"), QStringLiteral("Inicio de actividades en el ejercicio")},
        {QStringLiteral("Frame_ejercicio"), QStringLiteral("Resultado de ejercicios anteriores")},
        {QStringLiteral("Frame_anterior"), QStringLiteral("Ejercicio anterior")},
        {QStringLiteral("Frame_precedente"), QStringLiteral("Ejercicio precedente al anterior")},
        {QStringLiteral("Frame18"), QStringLiteral("Balance al")},
        {QStringLiteral("Frame3"), QStringLiteral("Sistema de pago")},
        {QStringLiteral("FrameSusPC"), QStringLiteral("Suspensión de pagos a cuenta")},
        {QStringLiteral("Frame26"), QString()},
        {QStringLiteral("Frame34"), QString()},
        {QStringLiteral("Frame35"), QStringLiteral("Pasivo")},
        {QStringLiteral("Frame36"), QStringLiteral("Patrimonio")},
        {QStringLiteral("frmMype"), QString()},
        {QStringLiteral("Frame6"), QStringLiteral("Datos del Contador")},
        {QStringLiteral("Frame7"), QStringLiteral("Datos del representante legal")},
        {QStringLiteral("Frame2"), QString()},
        {QStringLiteral("frame1(1)"), QString()},
        {QStringLiteral("frame1(2)"), QString()},
        {QStringLiteral("frame1(3)"), QString()},
        {QStringLiteral("frame1(5)"), QString()},
        {QStringLiteral("frame1(6)"), QString()},
        {QStringLiteral("frame1(7)"), QString()},
    };
    for (const auto& [nombre, caption] : listaMarcos)
        marcos.insert(nombre, Marco{caption, true, true});
    for (const char* m : {"Frame_General", "Frame15", "Frame19", "Frame21", "Frame20", "Frame28", "Frame13",
                          "Frame16", "Frame14"}) {
        marcos[QLatin1String(m)].Enabled = false;
        marcos[QLatin1String(m)].Visible = false;
    }
    for (const char* m : {"Frame_ejercicio", "Frame_anterior", "Frame_precedente"})
        marcos[QLatin1String(m)].Enabled = false;
    marcos[QStringLiteral("FrameSusPC")].Visible = false;
    marcos[QStringLiteral("Frame34")].Visible = false;
    marcos[QStringLiteral("frmMype")].Visible = false;

    // Labels of the regime details.
    Label1.insert(5, Etiqueta{QStringLiteral("Nro. de orden del formulario 2305"), false});
    Label1.insert(9, Etiqueta{QStringLiteral("Fecha de presentación del formulario 4888"), false});
    Label1.insert(12, Etiqueta{QStringLiteral("¿Se acoge a la ley de promoción de la inversión en la Amazonía?"), true});
    Label1.insert(13, Etiqueta{QStringLiteral("¿Su domicilio fiscal está en la Amazonía y coincide con el lugar donde tiene su administración y contabilidad?"), false});
    Label1.insert(14, Etiqueta{QStringLiteral("Zona a la que corresponde su domicilio"), false});
    Label1.insert(17, Etiqueta{QStringLiteral("¿Está ubicado en la Amazonía?"), true});
    Label1.insert(20, Etiqueta{QStringLiteral("¿Su domicilio fiscal está en la zona de frontera?"), false});
    Label1.insert(21, Etiqueta{QStringLiteral("Ubigeo de la zona de frontera"), false});
    lblTab1_0 = Etiqueta{QStringLiteral("dd/mm/aaaa"), true, false};
    for (int n : {41, 168, 98, 90, 100})
        lblTab2.insert(n, Etiqueta{});

    // Tab controls.
    SSTab1.captions = {QStringLiteral("&Identificación"), QStringLiteral("  Estados  &financieros"),
                       QStringLiteral("Determinación del nuevo coeficiente o porcentaje"),
                       QStringLiteral("Información com&plementaria")};
    SSTab2.captions = {QStringLiteral("&Datos Generales"), QStringLiteral("Datos complementarios del régimen"),
                       QStringLiteral("Sistema de pago")};
    SSTab3.captions = {QStringLiteral("Activo"), QStringLiteral("&Pasivo y Patrimonio"),
                       QStringLiteral("Estado de ganancias y pérdidas")};
    SSTab4.captions = {QStringLiteral("I&nformación general"),
                       QStringLiteral("Pérdida tributaria compensable de ejercicios anteriores")};
    for (Pestanas* t : {&SSTab1, &SSTab2, &SSTab3, &SSTab4}) {
        t->TabEnabled = QVector<bool>(t->captions.size(), true);
        t->TabVisible = QVector<bool>(t->captions.size(), true);
    }

    CmdValidar.Caption = QStringLiteral("&Validar");
    CmdGrabar.Caption = QStringLiteral("&Grabar");
    cmdCancelar.Caption = QStringLiteral("&Salir");
    cmdPerdida[0] = Boton{QStringLiteral("&Nuevo"), false};
    cmdPerdida[1] = Boton{QStringLiteral("&Modificar"), false};
    cmdPerdida[2] = Boton{QStringLiteral("&Eliminar"), false};

    TxtAyuda.Caption = QStringLiteral("Anotar los importes en nuevos soles sin considerar céntimos.");
}

// ---------------------------------------------------------------------- box array

Caja& Frm931::caja(int n)
{
    auto it = TxtValor.find(n);
    if (it == TxtValor.end())
        throw ErrorVB(kErrSubindice, QStringLiteral("El subíndice está fuera del intervalo"));
    return it.value();
}

const Caja& Frm931::caja(int n) const
{
    auto it = TxtValor.constFind(n);
    if (it == TxtValor.constEnd())
        throw ErrorVB(kErrSubindice, QStringLiteral("El subíndice está fuera del intervalo"));
    return it.value();
}

void Frm931::setTxt(int n, const QString& texto)
{
    Caja& c = caja(n);
    if (c.Text == texto)
        return;
    c.Text = texto;
    TxtValor_Change(n);
}

double Frm931::N(int c) const
{
    // The reading depends on the text alone, and the chain reads the same few texts over and
    // over (a total reads every box it adds at each key): each text is worked out once.
    static QHash<QString, double> lecturas;
    const QString& texto = caja(c).Text;
    const auto it = lecturas.constFind(texto);
    if (it != lecturas.constEnd())
        return *it;
    if (lecturas.size() >= 4096)
        lecturas.clear();
    const double valor = Val(Format(texto, Mascara::SinPicture));
    lecturas.insert(texto, valor);
    return valor;
}

double Frm931::A(int c) const
{
    return Abs(N(c));
}

// ---------------------------------------------------------------------- other plain boxes

Caja* Frm931::cajaControl(const QString& control)
{
    static const QHash<QString, Caja Frm931::*> cajas{
        {QStringLiteral("TxtNumRuc"), &Frm931::TxtNumRuc},
        {QStringLiteral("TxtRazon"), &Frm931::TxtRazon},
        {QStringLiteral("TxtTelefono"), &Frm931::TxtTelefono},
        {QStringLiteral("TxtEjercicio"), &Frm931::TxtEjercicio},
        {QStringLiteral("TxtNumOrden"), &Frm931::TxtNumOrden},
        {QStringLiteral("MkePeriodo"), &Frm931::MkePeriodo},
        {QStringLiteral("TxtUbigeo"), &Frm931::TxtUbigeo},
        {QStringLiteral("TxtUbigeo2"), &Frm931::TxtUbigeo2},
        {QStringLiteral("TxtNumOrdenF2305"), &Frm931::TxtNumOrdenF2305},
        {QStringLiteral("txtNumRes"), &Frm931::txtNumRes},
        {QStringLiteral("mkefecnot"), &Frm931::mkefecnot},
        {QStringLiteral("TxtNombreA"), &Frm931::TxtNombreA},
        {QStringLiteral("TxtNombreN"), &Frm931::TxtNombreN},
        {QStringLiteral("txtApellidoRL"), &Frm931::txtApellidoRL},
        {QStringLiteral("txtNombreRL"), &Frm931::txtNombreRL},
        {QStringLiteral("txtOrden"), &Frm931::txtOrden},
        {QStringLiteral("txtverifica"), &Frm931::txtverifica},
    };
    auto it = cajas.constFind(control);
    return it == cajas.constEnd() ? nullptr : &(this->*(it.value()));
}

void Frm931::escribirControl(const QString& control, const QString& texto)
{
    const int n = casillaDeNombre(control);
    if (n != 0) {
        setTxt(n, texto);
        return;
    }
    if (control == QLatin1String("TxtRazon")) {
        setTxtRazon(texto);
        return;
    }
    Caja* c = cajaControl(control);
    if (!c || c->Text == texto)
        return;
    c->Text = texto;
    if (control == QLatin1String("TxtTelefono"))
        TxtTelefono_Change();
    else if (control == QLatin1String("MkePeriodo"))
        MkePeriodo_Change();
    else if (control == QLatin1String("TxtUbigeo"))
        TxtUbigeo_Change();
    else if (control == QLatin1String("TxtUbigeo2"))
        TxtUbigeo2_Change();
    else if (control != QLatin1String("TxtEjercicio") && control != QLatin1String("TxtNumRuc"))
        mbModificado = true;
}

int Frm931::teclaControl(const QString& control, int KeyAscii)
{
    // Enter moves on in these; txtNombreRL keeps it, as the window always did.
    static const QStringList conTab{QStringLiteral("CmbZona"), QStringLiteral("OptAnterior"),
                                    QStringLiteral("OptPrecedente"), QStringLiteral("optRenta"),
                                    QStringLiteral("txtOrden"), QStringLiteral("txtverifica"),
                                    QStringLiteral("TxtTelefono"), QStringLiteral("TxtNombreA"),
                                    QStringLiteral("TxtNombreN"), QStringLiteral("txtApellidoRL")};
    const QString nombre = sinIndice(control);
    if (nombre == QLatin1String("TxtTelefono"))
        return TxtTelefono_KeyPress(KeyAscii);
    if (KeyAscii == 13) {
        if (conTab.contains(nombre))
            pTecla(QStringLiteral("TAB"));
        return 0;
    }
    if (nombre == QLatin1String("TxtNombreA") || nombre == QLatin1String("TxtNombreN")
        || nombre == QLatin1String("txtApellidoRL") || nombre == QLatin1String("txtNombreRL")) {
        mbModificado = true;
        return gobjUtil().TeclaTexto(KeyAscii);
    }
    if (nombre == QLatin1String("txtNumRes") || nombre == QLatin1String("TxtNumOrdenF2305")
        || nombre == QLatin1String("txtOrden") || nombre == QLatin1String("txtverifica")) {
        mbModificado = true;
        return gobjUtil().TeclaNumero(KeyAscii, false, false, false);
    }
    return KeyAscii;
}

QString Frm931::rucDeclarante() const
{
    if (!Trim(TxtNumRuc.Text).isEmpty())
        return Trim(TxtNumRuc.Text);
    return Trim(Left(CmbRuc.Text(), 11));
}

// ---------------------------------------------------------------------- focus

int Frm931::casillaDeNombre(const QString& control)
{
    static const QString prefijo = QStringLiteral("TxtValor(");
    if (!control.startsWith(prefijo) || !control.endsWith(QLatin1Char(')')))
        return 0;
    bool ok = false;
    const int n = control.mid(prefijo.size(), control.size() - prefijo.size() - 1).toInt(&ok);
    return ok && existeCasilla(n) ? n : 0;
}

const QStringList& Frm931::ordenTabulacion()
{
    static const QStringList lista = [] {
        QStringList l;
        for (const Parada& p : paradas())
            l << p.control;
        return l;
    }();
    return lista;
}

Frm931::UbicacionControl Frm931::ubicacion(const QString& control)
{
    const int i = indiceParadas().value(sinIndice(control), -1);
    if (i < 0)
        return {};
    const Parada& p = paradas()[i];
    return UbicacionControl{p.paginaSSTab1, p.subTab, p.paginaSub};
}

bool Frm931::puedeRecibirFoco(const QString& control, bool marcosVisibles) const
{
    auto* self = const_cast<Frm931*>(this);
    bool enabled = false, visible = false;
    const int n = casillaDeNombre(control);
    const QString nombre = sinIndice(control);
    int boton = -1;
    indiceDe(control, boton);
    if (n != 0) {
        const Caja& c = caja(n);
        enabled = c.Enabled;
        visible = c.Visible;
    } else if (Caja* c = self->cajaControl(nombre)) {
        enabled = c->Enabled;
        visible = c->Visible;
    } else if (const Lista* l = nombre == QLatin1String("CmbRuc") ? &CmbRuc
                              : nombre == QLatin1String("CboBalance") ? &CboBalance
                              : nombre == QLatin1String("CmbZona") ? &CmbZona
                              : nombre == QLatin1String("cboTipDocRepLegal") ? &cboTipDocRepLegal
                                                                             : nullptr) {
        enabled = l->Enabled;
        visible = l->Visible;
    } else if (nombre.startsWith(QLatin1String("cmdPerdida"))) {
        const int i = control.mid(11, 1).toInt();
        enabled = cmdPerdida[i].Enabled;
        visible = cmdPerdida[i].Visible;
    } else {
        static const QHash<QString, Boton Frm931::*> botones{
            {QStringLiteral("CmdZona1"), &Frm931::CmdZona1}, {QStringLiteral("CmdZona2"), &Frm931::CmdZona2},
            {QStringLiteral("CmdValidar"), &Frm931::CmdValidar}, {QStringLiteral("CmdGrabar"), &Frm931::CmdGrabar},
            {QStringLiteral("cmdCancelar"), &Frm931::cmdCancelar}};
        static const QHash<QString, GrupoOpciones Frm931::*> grupos{
            {QStringLiteral("optRenta"), &Frm931::optRenta}, {QStringLiteral("OptRectifica"), &Frm931::OptRectifica},
            {QStringLiteral("OptPersona"), &Frm931::OptPersona},
            {QStringLiteral("OptUbicAmazonia"), &Frm931::OptUbicAmazonia},
            {QStringLiteral("OptLeyAmazonia"), &Frm931::OptLeyAmazonia},
            {QStringLiteral("OptDomFiscal"), &Frm931::OptDomFiscal}, {QStringLiteral("OptZona"), &Frm931::OptZona},
            {QStringLiteral("OptActividad"), &Frm931::OptActividad},
            {QStringLiteral("OptFrontera"), &Frm931::OptFrontera},
            {QStringLiteral("OptConvEstab"), &Frm931::OptConvEstab}, {QStringLiteral("OptInicio"), &Frm931::OptInicio},
            {QStringLiteral("OptAnterior"), &Frm931::OptAnterior},
            {QStringLiteral("OptPrecedente"), &Frm931::OptPrecedente},
            {QStringLiteral("OptSuspPC"), &Frm931::OptSuspPC}};
        if (auto b = botones.constFind(nombre); b != botones.constEnd()) {
            enabled = (this->*(b.value())).Enabled;
            visible = (this->*(b.value())).Visible;
        } else if (auto g = grupos.constFind(nombre); g != grupos.constEnd()) {
            const GrupoOpciones& grupo = this->*(g.value());
            for (int i = 0; i < grupo.b.size(); ++i) {
                if (boton >= 0 && i != boton)
                    continue;
                enabled = enabled || (grupo.b[i].Enabled && grupo.b[i].Visible);
            }
            visible = enabled;
        } else {
            return false;
        }
    }
    if (!enabled || !visible)
        return false;
    const int i = indiceParadas().value(nombre, -1);
    if (i >= 0) {
        for (const QString& m : paradas()[i].marcos) {
            const Marco mc = marcos.value(m);
            if (!mc.Enabled || (marcosVisibles && !mc.Visible))
                return false;
        }
    }
    return true;
}

void Frm931::darFoco(const QString& control)
{
    if (mbSaliendoFoco) {
        // A lost-focus rule moved the focus: the move in progress goes there instead.
        msFocoRedirigido = control;
        return;
    }
    if (foco == control || !puedeRecibirFoco(control, false))
        return;
    QString destino = control;
    const QString viejo = foco;
    if (!viejo.isEmpty()) {
        mbSaliendoFoco = true;
        msFocoRedirigido.clear();
        if (const int n = casillaDeNombre(viejo))
            TxtValor_LostFocus(n);
        else if (viejo == QLatin1String("MkePeriodo"))
            MkePeriodo_Validate();
        mbSaliendoFoco = false;
        if (!msFocoRedirigido.isEmpty()) {
            destino = msFocoRedirigido;
            msFocoRedirigido.clear();
        }
    }
    foco = destino;
    if (const int n = casillaDeNombre(destino))
        TxtValor_GotFocus(n);
}

void Frm931::pTecla(const QString& tecla)
{
    // "TAB" moves on, "+TAB" (Shift+Tab) back.
    int paso = 0;
    if (tecla == QLatin1String("TAB"))
        paso = 1;
    else if (tecla == QLatin1String("+TAB"))
        paso = -1;
    else
        return;
    const QVector<Parada>& p = paradas();
    const int actual = indiceParadas().value(sinIndice(foco), -1);
    auto pestana = [this](const QString& nombre) -> const Pestanas* {
        if (nombre == QLatin1String("SSTab2")) return &SSTab2;
        if (nombre == QLatin1String("SSTab3")) return &SSTab3;
        if (nombre == QLatin1String("SSTab4")) return &SSTab4;
        return nullptr;
    };
    const int desde = actual < 0 && paso < 0 ? 0 : actual;
    for (int k = 1; k <= p.size(); ++k) {
        const Parada& s = p[((desde + paso * k) % p.size() + p.size()) % p.size()];
        if (s.paginaSSTab1 >= 0 && SSTab1.Tab != s.paginaSSTab1)
            continue;
        if (const Pestanas* sub = pestana(s.subTab); sub && sub->Tab != s.paginaSub)
            continue;
        if (const int n = casillaDeNombre(s.control); n && caja(n).Locked)
            continue;
        if (!puedeRecibirFoco(s.control))
            continue;
        darFoco(s.control);
        return;
    }
}
