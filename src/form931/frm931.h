#pragma once
// The declaration form as a presentation model. It holds what the window shows (texts,
// enabled/visible/locked, colours, maximum lengths, option answers, combos, labels, tab pages,
// focus) and exposes the window's events as methods. The text of TxtValor(n) is the value of
// casilla n: there is no other model of the declaration. A rule writes a box through setTxt(),
// which raises the box's change event only when the text differs; the computation chain
// terminates on that rule.
//
// The member functions are implemented by concern:
//   frm931.cpp          controls and their design state, focus and the tab order
//   casillas_def.cpp    the master table of boxes and items (read also by the window, the
//                       command, the exporter and the report)
//   casillas.cpp        box array, editing, focus, keys, pairs, help lines, tab pages
//   identificacion.cpp  identification, regime groups, payment block, captions and period
//   calculo.cpp         computation chain, tax, rate and coefficient
//   carga.cpp           opening the form and putting the identification in place
//   validacion_pestana.cpp  the check on leaving the identification tab
//   validacion.cpp      the full and silent validation passes
//   grabacion.cpp       loading, saving, leaving, order-number mode
//   almacen.cpp         single casilla values to and from DET
#include "form931/casillas.h"
#include "form931/controles.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

class Frm931;

// What the form needs from the windows around it. The Qt view implements it with real
// dialogs; the CLI and the tests implement it without a screen.
class EntornoFrm931 {
public:
    virtual ~EntornoFrm931() = default;
    // frmAnexo477 for casilla 473 or 477, modal: returns when it closes (having written the
    // boxes through the model, or not on cancel).
    virtual void abrirAnexo477(Frm931& frm, int nCasilla) = 0;
    // frmUbigeo, modal, with the caption "Ubigeo Zona " + zone; it reads G().gsZonaAbrir and
    // G().gsUbigeoSel and leaves the accepted code in G().gsUbigeoSel.
    virtual void abrirUbigeo(const QString& caption) = 0;
    // FrmConsist, modal (shows G().gsArchMens).
    virtual void abrirConsist() {}
    // frmPerdidaEjercAnt, modal.
    virtual void abrirPerdida() {}
    // The main window's status bar.
    virtual void pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo,
                              const QString& formulario) { (void)ruc; (void)nombre; (void)periodo; (void)formulario; }
    // FrmContAbrir behind the form becomes visible again.
    virtual void mostrarContAbrir() {}
    // The form asks to close itself (Unload Me).
    virtual void cerrarFormulario() {}
};

class Frm931 {
public:
    explicit Frm931(EntornoFrm931* entorno = nullptr);
    ~Frm931();

    EntornoFrm931* entorno = nullptr;
    QString Caption = QStringLiteral("Modificación de coeficiente o porcentaje");
    bool cerrado = false;        // set when the form unloads itself

    // ------------------------------------------------------------------ box array
    QMap<int, Caja> TxtValor;            // the 109 boxes by casilla number
    QVector<int> mvCasillas;             // filled by Form_Load
    Caja& caja(int n);                   // throws ErrorVB 9 for a number with no box
    const Caja& caja(int n) const;
    const QString& txt(int n) const { return caja(n).Text; }
    // Writes a box's text; raises TxtValor_Change(n) only when the text differs.
    void setTxt(int n, const QString& texto);

    // Readings of a box: N(c) through the mask "###########0" and Val; A(c) its absolute value.
    double N(int c) const;
    double A(int c) const;

    // ------------------------------------------------------------------ other controls
    // Identification.
    Lista CmbRuc;
    Caja TxtNumRuc, TxtRazon, TxtTelefono, TxtEjercicio, TxtNumOrden;
    GrupoOpciones optRenta;          // 0 General, 1 Agrario, 2 Amazonía, 3 Frontera, 4 Convenio, 5 MYPE
    GrupoOpciones OptRectifica;      // 0 No, 1 Si
    // Regime details.
    GrupoOpciones OptPersona;        // 0 Persona Jurídica, 1 Persona Natural
    Caja MkePeriodo;                 // mask "__/__/____"
    GrupoOpciones OptUbicAmazonia, OptLeyAmazonia, OptDomFiscal;   // 0 No, 1 Si
    GrupoOpciones OptZona;           // 0 Zona 1, 1 Zona 2
    Caja TxtUbigeo, TxtUbigeo2;
    Boton CmdZona1, CmdZona2;
    GrupoOpciones OptActividad, OptFrontera;    // 0 No, 1 Si
    GrupoOpciones OptConvEstab;      // elements 1 to 4 (element 0 unused)
    Caja TxtNumOrdenF2305;
    // Payment block.
    GrupoOpciones OptInicio;         // 0 No, 1 Si
    GrupoOpciones OptAnterior, OptPrecedente;   // 0 Utilidad, 1 Pérdida
    Lista CboBalance;
    Etiqueta LblSistema, LblPresentacion;
    GrupoOpciones OptSuspPC;         // 0 No, 1 Si
    Caja txtNumRes, mkefecnot;       // mkefecnot mask "__/__/____"
    // Complementary information.
    Caja TxtNombreA, TxtNombreN, txtApellidoRL, txtNombreRL;
    Lista CmbZona, cboTipDocRepLegal;
    // Order-number mode.
    Caja txtOrden, txtverifica;
    Etiqueta lblNorden, lblGuion;
    // Containers and labels by name: "Frame_General", "Frame15", "Frame19", "Frame20",
    // "Frame21", "Frame28", "Frame29", "Frame13", "Frame16", "Frame14", "Frame4",
    // "Frame_ejercicio", "Frame_anterior", "Frame_precedente", "Frame18", "Frame3",
    // "FrameSusPC", "Frame26", "Frame34", "Frame35", "Frame36", "frmMype", "Frame6", "Frame7",
    // "Frame9", "Frame11", "Frame17", "Frame2", "frame1(1)", "frame1(2)", "frame1(3)",
    // "frame1(5)", "frame1(6)", "frame1(7)".
    QMap<QString, Marco> marcos;
    Marco& marco(const QString& nombre) { return marcos[nombre]; }
    QMap<int, Etiqueta> Label1;      // Label1(5), (9), (12), (13), (14), (17), (20), (21)
    Etiqueta lblTab1_0;              // lblTab1(0)
    QMap<int, Etiqueta> lblTab2;     // headings 41, 168, 98, 90, 100
    Pestanas SSTab1, SSTab2, SSTab3, SSTab4;
    BarraDesplazamiento VScroll1;
    Boton CmdValidar, CmdGrabar, cmdCancelar;
    Boton cmdPerdida[3];
    Etiqueta TxtAyuda, TxtAyuda1;    // the two help lines (Caption = text, ForeColor)
    // Loss grid on page 1 of SSTab4: rows (Anho, Importe) as last bound.
    QVector<QPair<QString, QString>> grdPerdidaTributaria;
    int filaPerdida = 0;             // the grid's current row, set by the view

    // Focus: the name of the control that has it, as "TxtValor(461)", "CmbRuc", "TxtTelefono",
    // "MkePeriodo", "optRenta" (a group), "OptPrecedente(0)" (one button), ... Moving it runs
    // the old box's lost-focus (MkePeriodo's validation on leaving it) and the new box's
    // got-focus; a lost-focus rule that moves the focus wins (leaving 473 lands on 475). A
    // control that is disabled or hidden, or in a disabled frame, does not take it.
    QString foco;
    void darFoco(const QString& control);
    void darFocoCasilla(int n) { darFoco(nombreCasilla(n)); }
    static QString nombreCasilla(int n) { return QStringLiteral("TxtValor(%1)").arg(n); }
    static int casillaDeNombre(const QString& control);   // 0 when not a box
    // The Tab keystroke ("TAB"; "+TAB" is Shift+Tab): focus to the next (previous) control in
    // the window's tab order that can take it.
    void pTecla(const QString& tecla);
    // The window's tab order, one name a stop (option groups are one stop: "optRenta").
    static const QStringList& ordenTabulacion();
    // Whether the control is enabled and visible with every frame that holds it (the page it
    // stands on does not count: a rule may focus a control of another page). darFoco asks
    // less: the control enabled and visible and its frames enabled, so that a box of the
    // asset half the scroller hides can still be given the focus by a rule or a script.
    bool puedeRecibirFoco(const QString& control, bool marcosVisibles = true) const;
    // Pages that hold the control: SSTab1's page, and the inner tab control's name and page
    // ("" and -1 when the control stands directly on SSTab1's page or outside the tabs).
    struct UbicacionControl { int paginaSSTab1 = -1; QString subTab; int paginaSub = -1; };
    static UbicacionControl ubicacion(const QString& control);

    // ------------------------------------------------------------------ form state
    bool mbModificado = false;
    bool mbCargandoCasillas = false;
    int mnTab = 0;
    quint8 miRegimen = 9;
    QString msUit;
    QString msTitBalance1, msTitBalance2, msTitGanancias, msFechaBalance;
    qint16 miModo = 0;               // 0 new, 1 modify
    QString msRuc, msRazon;
    // The sent copy opened for its order number: RUC, period and correlative as the globals
    // named it when the form loaded. Cargacab reads it and the registration writes it,
    // whatever period a rule of the form has put in the globals since.
    QStringList claveEnviada;
    QString msCas601, msCas602, msCas802, msCas804, msCas805, msCas809, msCas810, msCas811,
        msCas813, msCas860, msCas056, msCas113;
    bool mbPrimeraVez = true;
    bool mbIndicesOk = false;
    int Frame34Top = 140;            // twips: 140 after VScroll1_Change, 120 while dragging
    int Frame34Left = 2280;

    // The declarant's RUC: TxtNumRuc once the form shows it (modify mode, after the first save),
    // else the first 11 characters of CmbRuc, trimmed.
    QString rucDeclarante() const;
    // Writes the text of a plain control of the form by name ("TxtTelefono", "MkePeriodo",
    // "mkefecnot", "txtNumRes", "TxtNumOrdenF2305", "TxtNombreA", "TxtNombreN",
    // "txtApellidoRL", "txtNombreRL", "TxtUbigeo", "TxtUbigeo2", "TxtRazon", "txtOrden",
    // "txtverifica") and raises its change event when the text differs.
    void escribirControl(const QString& control, const QString& texto);
    Caja* cajaControl(const QString& control);   // nullptr: no such plain box
    // A key typed in a plain control (not a casilla box): returns the key to type, 0 when
    // dropped; Enter moves on where the window does so.
    int teclaControl(const QString& control, int KeyAscii);
    // Sets VScroll1's value as a rule or the user does, raising its change event.
    void ponerVScroll(int valor);
    // Help texts shown over a computed box; false when the box shows the general hint.
    static bool ayudaCasilla(int n, QString& linea1, QString& linea2);
    // The attributes a document-type line carries after its visible part: length of the
    // number, kind of data, kind of length.
    static QStringList atributosTipoDoc(const QString& linea);

    // ------------------------------------------------------------------ events of the boxes
    void TxtValor_Change(int Index);
    void TxtValor_GotFocus(int Index);
    void TxtValor_LostFocus(int Index);
    // Returns the key to type (0: dropped). Also runs Enter's navigation.
    int TxtValor_KeyPress(int Index, int KeyAscii);
    void TxtValor_KeyDown(int Index, int KeyCode, int Shift);
    // The same, returning the key code that still reaches the box (0: dropped).
    int TxtValor_KeyDownTecla(int Index, int KeyCode, int Shift);
    void TxtValor_DblClick(int Index);
    void TxtValor_MouseMove(int Index);
    void TxtValor_MouseDown(int Index, int Button);
    // Typing a whole text into a box as a user would: each key through KeyPress, the text
    // through the change event. The box is given the focus first (nothing is typed when it
    // can't take it); keys go on into whatever box has the focus after each one, so an Enter
    // ("\r") moves on as the window does and a Backspace is "\b".
    void teclear(int Index, const QString& texto);
    void pTemCasillas(int casilla, int otra);
    void VScroll1_Change();
    void VScroll1_Scroll();
    void Frame1_MouseMove();
    void Frame17_MouseMove();
    void SSTab1_Click(int PreviousTab);      // Tab already holds the new page
    void SSTab1_MouseUp();
    void SSTab2_Click(int PreviousTab);
    void SSTab3_Click(int PreviousTab);
    void SSTab4_Click(int PreviousTab);
    // The user picks a page: sets Tab and runs the click event (which may set it back).
    void elegirPestana(Pestanas& control, int pagina);

    // ------------------------------------------------------------------ identification
    // The user (or a rule) selects button `indice` of a group: the group takes the selection
    // and the group's click handler runs.
    void optRenta_Click(int Index);
    void OptPersona_Click(int Index);
    void OptUbicAmazonia_Click(int Index);
    void OptLeyAmazonia_Click(int Index);
    void OptDomFiscal_Click(int Index);
    void OptZona_Click(int Index);
    void OptActividad_Click(int Index);
    void OptFrontera_Click(int Index);
    void OptConvEstab_Click(int Index);
    void OptInicio_Click(int Index);
    void OptAnterior_Click(int Index);
    void OptPrecedente_Click(int Index);
    void OptSuspPC_Click(int Index);
    void OptRectifica_Click(int Index);
    void marcar(GrupoOpciones& grupo, int indice);   // selects and runs the group's click
    void CmdZona1_Click();
    void CmdZona2_Click();
    void TxtUbigeo_Change();
    void TxtUbigeo2_Change();
    void cboTipDocRepLegal_Click();
    void CmbZona_Click();
    void CmbRuc_Click();
    void CboBalance_Click();
    void elegir(Lista& combo, int indice);           // sets ListIndex and runs the click
    void MkePeriodo_Change();
    void MkePeriodo_Validate();                       // on leaving the box
    void LblSistema_Change();
    void setLblSistema(const QString& caption);       // raises LblSistema_Change on a change
    void TxtTelefono_Change();
    int TxtTelefono_KeyPress(int KeyAscii);
    void TxtRazon_Change();
    void setTxtRazon(const QString& texto);           // raises TxtRazon_Change on a change
    void Balance();
    void Presentacion();
    void Presentacion2013();
    // Headings of the balance tabs and msFechaBalance for the CboBalance index (0 or 1) in
    // the family of the period's year.
    void ponerTitulos(int indice);
    void pMuestraMarcos(bool f1, bool f2, bool f5);

    // ------------------------------------------------------------------ computation
    void Calcular106y107();
    void Calcular110y111();
    void Calcular463();
    void Calcular466y467();
    void Calcular470y471();
    void Calcular484y485();
    void Calcular487y489();
    void Calcular492y493();
    void Calcular531();
    void Calcular543();
    void Calcular554();
    void Calcular555();
    QString getUIT();
    void Calcular113();
    void Calcular_coeficiente();
    void IngresoNetos(double& dIngresos);
    void Calcular250();
    double Vale(int iCasilla) const;
    void Calcular253();
    int anio() const;                 // Y: the number the first four characters of gsPeriodo read

    // ------------------------------------------------------------------ validation
    void ValidaContForm1(bool& bOk);
    void ValidaFormulario();
    void ValidaCompleto(bool& bOk);
    void ValidaParExcluyente(int iCasilla, int iCasilla1, bool bMensaje, int iCasilla2, bool& bOk);
    bool ValidaPeriodo(const QString& sFecha) const;

    // ------------------------------------------------------------------ loading and saving
    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    void pCargaIdent();
    void Cargacab();                 // also keeps the key of the sent copy in claveEnviada
    void DesTodo();
    void CmdGrabar_Click();
    void CmdValidar_Click();
    void cmdCancelar_Click();
    void cmdPerdida_Click(int Index);
    void pGrabaCasilla(const QString& sCasilla, const QString& vValor, const QString& sRuc, const QString& sPeriodo);
    void pCargaCasillas(bool& bVacio);
    void pPonerCasilla(const QString& sCasilla, const QString& vValor);

private:
    void crearControles();
    // Frames of a regime: shown and enabled for the chosen one, shut for the others (with
    // abrirMarcos false only the MYPE group follows the regime).
    void mostrarMarcosRegimen(int Index, bool abrirMarcos = true);
    // The suspension of advance payments back to "No" with its boxes cleared.
    void reponerSuspension();
    // CboBalance's index set by a rule: raises the click when it changes.
    void ponerIndiceBalance(int indice);
    void navegarEnter(int Index, bool conTab);
    void abrirAnexo(int Index);
    // Focus in transit: a lost-focus rule that moves the focus redirects the move.
    bool mbSaliendoFoco = false;
    QString msFocoRedirigido;
};
