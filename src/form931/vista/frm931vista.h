#pragma once
// The declaration window: a thin Qt view of the presentation model Frm931. It mirrors the
// model after every event it forwards (refrescar) and forwards every user action to the
// model's event methods. No rule of the declaration lives here.
#include "form931/frm931.h"

#include <QDialog>
#include <QMap>
#include <QPointer>
#include <QVector>

#include <functional>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QTabWidget;
class QTableWidget;
class Frm931Vista;

// The form's surroundings on the screen: real dialogs, the main window's status bar.
class EntornoQt : public EntornoFrm931 {
public:
    void abrirAnexo477(Frm931& frm, int nCasilla) override;
    void abrirUbigeo(const QString& caption) override;
    void abrirConsist() override;
    void abrirPerdida() override;
    void pBarraEstado(const QString& ruc, const QString& nombre, const QString& periodo,
                      const QString& formulario) override;
    void cerrarFormulario() override;
    Frm931Vista* vista = nullptr;
};

class Frm931Vista : public QDialog {
    Q_OBJECT
public:
    explicit Frm931Vista(Frm931& modelo, QWidget* padre = nullptr);
    ~Frm931Vista() override;

    Frm931& modelo() { return m_; }
    // The widget of a control by the model's name ("TxtValor(461)", "CmbRuc", "optRenta(2)").
    QWidget* control(const QString& nombre) const { return controles_.value(nombre); }
    QLineEdit* caja(int casilla) const { return cajas_.value(casilla); }
    QRadioButton* opcion(const QString& grupo, int indice) const;

    // Mirrors the whole model: texts, enabled, visible, read-only, colours, lengths, options,
    // combos, captions, pages, focus.
    void refrescar();
    // Runs one forwarded event: catches the run-time errors the rules raise, then mirrors.
    void ejecutar(const std::function<void()>& evento);
    // The model asked to close (Unload Me).
    void cerrar();

public slots:
    void reject() override;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void showEvent(QShowEvent* evento) override;

private:
    struct VCaja {
        QString nombre;
        QLineEdit* w = nullptr;
        int casilla = 0;             // > 0: a box of TxtValor
        Caja* caja = nullptr;        // the other boxes
        bool mascara = false;
        // What was last put on the widget, to touch only what changed.
        QString texto;
        bool inicial = true, enabled = true, visible = true, readOnly = false;
        quint32 color = 0xFFFFFFFF;
        int maximo = -1;
    };
    struct VGrupo {
        QString nombre;
        GrupoOpciones* g = nullptr;
        QVector<QRadioButton*> b;    // null where the group has no button
        QStringList porDefecto;
    };
    struct VLista {
        QString nombre;
        Lista* l = nullptr;
        QComboBox* w = nullptr;
        QStringList items;
    };
    struct VEtiqueta {
        Etiqueta* e = nullptr;
        QLabel* w = nullptr;
        bool siempre = false;        // mirror the caption even when empty
        QString porDefecto;
    };
    struct VBoton {
        Boton* b = nullptr;
        QPushButton* w = nullptr;
        QString nombre;
    };
    struct VEncabezado {
        int indice = 0;
        QLabel* titulo = nullptr;
        QLabel* columna = nullptr;
        QString porDefecto;
    };

    Caja& cajaModelo(VCaja& v) { return v.casilla ? m_.caja(v.casilla) : *v.caja; }

    // Building.
    void construir();
    QWidget* paginaIdentificacion();
    QWidget* paginaDatosGenerales();
    QWidget* paginaComplementarios();
    QWidget* paginaSistemaPago();
    QWidget* paginaEstados();
    QWidget* paginaActivo();
    QWidget* paginaPasivo();
    QWidget* paginaGanancias();
    QWidget* paginaDeterminacion();
    QWidget* paginaInformacion();
    QWidget* pieDeVentana();
    QLineEdit* nuevaCasilla(int n);
    QLineEdit* nuevaCaja(const QString& nombre, Caja* caja, bool mascara = false);
    void filaCasilla(class QGridLayout* rejilla, int fila, int n, int columna = 0);
    int filasDelMarco(class QGridLayout* rejilla, const char* marco, int fila, int columna = -1);
    QWidget* nuevoGrupo(const QString& nombre, GrupoOpciones& g, const QStringList& porDefecto,
                        const QVector<int>& orden, bool horizontal = true);
    QComboBox* nuevaLista(const QString& nombre, Lista& l);
    QLabel* nuevaEtiqueta(const QString& nombre, Etiqueta& e, const QString& porDefecto, bool siempre = false);
    QPushButton* nuevoBoton(const QString& nombre, Boton& b, const QString& porDefecto);
    class QGroupBox* nuevoMarco(const QString& nombre, const QString& porDefecto);
    QWidget* nuevoMarcoSimple(const QString& nombre);
    QTabWidget* nuevasPestanas(const QString& nombre, Pestanas& p, const QStringList& porDefecto);
    void registrar(const QString& nombre, QWidget* w);

    // Mirroring.
    void refrescarCaja(VCaja& v);
    void refrescarAyuda();
    void seguirFoco();

    // Forwarding.
    bool teclaEnCaja(VCaja& v, class QKeyEvent* e);
    void textoEditado(VCaja& v);
    void pestanaElegida(QTabWidget* w, Pestanas& p, int pagina);
    void enterComoTab();
    // Tab (adelante) or Shift+Tab: the form's order of stops, which then goes on to the next
    // (previous) page of the inner tab control instead of leaving it for the buttons.
    void tabular(bool adelante);
    // After a move of the focus that started at `desde`: a move out of an inner page to the
    // buttons goes to the next (previous) page of that tab control instead, when it has one.
    void seguirEnPaginas(const QString& desde, bool adelante);
    // The first (last) stop of the pages shown, "" when none can take the focus.
    QString paradaDePagina(bool primera) const;
    // Whether the control stands on the pages shown (controls outside the tabs do not).
    bool enPaginaMostrada(const QString& control) const;
    // After a page change: the focus goes to the first stop of the page shown, unless the
    // rules put it on that page.
    void enfocarPagina();
    // A text pasted or dropped into a box: taken only when every character is one the box
    // takes from the keyboard and the result fits; otherwise refused, the box unchanged.
    void pegar(VCaja& v, const QString& texto);

    Frm931& m_;
    QMap<QString, QWidget*> controles_;
    QMap<QWidget*, QString> nombres_;
    QMap<int, QLineEdit*> cajas_;
    QVector<VCaja> vcajas_;
    QMap<QObject*, int> indiceCaja_;
    QVector<VGrupo> grupos_;
    QVector<VLista> listas_;
    QVector<VEtiqueta> etiquetas_;
    QVector<VBoton> botones_;
    QMap<QString, QWidget*> marcos_;
    QMap<QString, QString> captionMarco_;
    QVector<QPair<QTabWidget*, Pestanas*>> pestanas_;
    QVector<VEncabezado> encabezados_;
    // Captions that go grey with the controls they name (any of them open keeps them black).
    QVector<QPair<QLabel*, QVector<QWidget*>>> acompanadas_;
    void acompanar(QLabel* etiqueta, const QVector<QWidget*>& controles);
    QScrollBar* vscroll_ = nullptr;
    QLabel* ayuda_ = nullptr;
    QLabel* ayuda1_ = nullptr;
    QTableWidget* grilla_ = nullptr;
    QVector<QPair<QString, QString>> grillaMostrada_;
    QWidget* portadores_ = nullptr;

    int refrescando_ = 0;
    bool activado_ = false;
    bool cerrarPendiente_ = false;
    bool saltarFiltro_ = false;
    QString ultimoMovimiento_;
};

// Creates and shows the declaration window for a model that has already run Form_Load.
int mostrarDeclaracion(Frm931& frm, EntornoQt& entorno, QWidget* padre);
