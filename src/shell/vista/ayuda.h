#pragma once
// The module's help: a set of HTML pages with a contents file, shown in a window of its own with
// the contents, a search box and the page. F1 anywhere opens it on the page of the window in use.
#include <QDialog>
#include <QList>
#include <QString>
#include <QStringList>

class QLabel;
class QLineEdit;
class QPushButton;
class QTextBrowser;
class QTreeWidget;
class QTreeWidgetItem;

// One line of the contents: a page or a section of one ("declaracion.html#estados"), its title,
// its depth in the tree, and the windows whose F1 lands on it ("Frm931", "Frm931/SSTab1/1").
struct EntradaAyuda {
    QString destino;
    QString titulo;
    int nivel = 0;
    QStringList ventanas;
};

// The folder of the help pages: the one installed beside the program, else the copy built in.
QString carpetaAyudaIncluida();
// The first page of that folder; the launcher copies it to the family's 0931/Ql931.hlp.
QString archivoAyudaIncluido();
// The contents of a help folder, in order (contenido.txt).
QList<EntradaAyuda> contenidoAyuda(const QString& carpeta);
// The page for F1 in `ventana`: the section of the tab in front when the contents names one,
// else the window's page, else the first page.
QString destinoDeVentana(const QList<EntradaAyuda>& contenido, const QWidget* ventana);

class VentanaAyuda : public QDialog {
    Q_OBJECT
public:
    // `primera` is the family's copy of the first page; when it exists it stands for that page.
    explicit VentanaAyuda(const QString& primera, QWidget* padre = nullptr);

    void ir(const QString& destino);         // "pagina.html" or "pagina.html#ancla"
    QString destino() const;                 // the page and section shown
    QStringList paginasHalladas() const;     // titles left in the contents by the search

    QTreeWidget* trvContenido;
    QLineEdit* txtBuscar;
    QLabel* lblHallados;
    QTextBrowser* texto;
    QPushButton* cmdAtras;
    QPushButton* cmdAdelante;
    QPushButton* cmdCerrar;

private:
    void buscar(const QString& palabras);
    void abrirPrimeraHallada();
    void marcarEnContenido();
    void elegido(QTreeWidgetItem* item);
    void resaltar();

    QList<EntradaAyuda> contenido_;
    QStringList textos_;   // what each entry says, folded for the search
    QStringList palabras_;
    bool sincronizando_ = false;
};

// Shows the help at `destino` ("pagina.html#ancla"); one window at a time, brought forward and
// moved to `padre` so that a modal window in use does not block it.
VentanaAyuda* mostrarAyudaEn(const QString& destino, QWidget* padre);
// The main window's help command: `archivo` is the family's help file (0931/Ql931.hlp), shown as
// the first page when it exists; `contexto` is the anchor of that page ("257").
void mostrarAyuda(const QString& archivo, const QString& contexto, QWidget* padre);
// Installs F1 on the whole application (once): it opens the help on the active window's page.
void instalarTeclaAyuda();
