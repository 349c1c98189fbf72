#pragma once
// The program's one top-level window: menu, toolbar, family status bar and background. It
// holds no data: each command sets the global values and opens a modal form (shell/comandos).
#include <QList>
#include <QMainWindow>

class BarradeEstadoQVL;
class QAction;
class QLabel;
class QToolBar;

class MDIFrm : public QMainWindow {
    Q_OBJECT
public:
    explicit MDIFrm(QWidget* padre = nullptr);
    ~MDIFrm() override;

    // The second half of the start: form code, geometry, settings, database, help file, status
    // bar. False when the database did not open: the process ends.
    bool Form_Load();
    void MostrarHelp();

    // A menu item or menu by its name ("mnuNueva", "mnuDeclara", ...), a toolbar button by index.
    QAction* accion(const QString& nombre) const;
    QAction* boton(int indice) const { return botones_.value(indice - 1); }

    QToolBar* tlbMenu;
    BarradeEstadoQVL* BarradeEstadoQVL1;
    QWidget* Picture2;
    QLabel* imgFondo;

protected:
    void changeEvent(QEvent* e) override;
    void closeEvent(QCloseEvent* e) override;
    void mouseMoveEvent(QMouseEvent* e) override;
    bool eventFilter(QObject* objeto, QEvent* e) override;

private:
    void crearMenus();
    void crearBarra();
    void crearFondo();
    void ponerGeometria(int izquierda, int arriba, int ancho, int alto);   // twips, outer frame
    void mostrarBarra();
    void moverSobreBarra(int x);

    QList<QAction*> botones_;   // index 1..10 at 0..9
    bool cerrando_ = false;
};
