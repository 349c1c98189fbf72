#pragma once
// The family's status bar: the taxpayer, the period and the form of the declaration in hand,
// each in its own panel. Modo 0 leaves the panels hidden; any other mode shows them.
#include <QStatusBar>
#include <QString>

class QLabel;

class BarradeEstadoQVL : public QStatusBar {
    Q_OBJECT
    Q_PROPERTY(int Modo READ Modo WRITE setModo)
    Q_PROPERTY(QString PanelRuc READ PanelRuc WRITE setPanelRuc)
    Q_PROPERTY(QString PanelNombre READ PanelNombre WRITE setPanelNombre)
    Q_PROPERTY(QString PanelPeriodo READ PanelPeriodo WRITE setPanelPeriodo)
    Q_PROPERTY(QString PanelFormulario READ PanelFormulario WRITE setPanelFormulario)

public:
    explicit BarradeEstadoQVL(QWidget* padre = nullptr);

    int Modo() const { return modo_; }
    QString PanelRuc() const;
    QString PanelNombre() const;
    QString PanelPeriodo() const;
    QString PanelFormulario() const;

public slots:
    void setModo(int modo);
    void setPanelRuc(const QString& texto);
    void setPanelNombre(const QString& texto);
    void setPanelPeriodo(const QString& texto);
    void setPanelFormulario(const QString& texto);

private:
    QLabel* panel(const char* nombre, const QString& ayuda, int ancho, int estiramiento);
    int modo_ = 0;
    QLabel* ruc_;
    QLabel* nombre_;
    QLabel* periodo_;
    QLabel* formulario_;
};
