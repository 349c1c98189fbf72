#pragma once
// What the two declaration pickers share on the screen: a frame with a label and the grid
// grdContrib, the two buttons CmdOpciones, and the forwarding of the buttons, the double click,
// the row changes and every activation (which reloads the list) to the picker's model.
// SelectorDe<Modelo> ties it to a model with the pickers' members (Caption, Frame1, Label1,
// CmdOpciones, filas, fila, visible, cerrar and their events).
#include <QDialog>
#include <QStringList>
#include <QVector>

#include <functional>

class QGroupBox;
class QLabel;
class QPushButton;
class QTableWidget;

class SelectorVista : public QDialog {
    Q_OBJECT
public:
    QTableWidget* grdContrib = nullptr;
    QGroupBox* Frame1 = nullptr;
    QLabel* Label1 = nullptr;
    QPushButton* CmdOpciones[2] = {nullptr, nullptr};

    // Mirrors the model: captions, rows, the current row.
    void refrescar();

protected:
    // The grid's columns and their widths in pixels; the form's size in twips.
    SelectorVista(const QString& nombre, const QStringList& columnas, const QVector<int>& anchos, int ancho, int alto,
                  QWidget* padre);
    // Finishes the set-up once the derived object exists: loads the model and shows it.
    void iniciar();
    void ejecutar(const std::function<void()>& evento);

    struct Textos {
        QString caption, marco, etiqueta, botones[2];
    };
    virtual Textos textos() const = 0;
    virtual QVector<QStringList> filas() const = 0;
    virtual int fila() const = 0;
    virtual void cargar() = 0;                 // Form_Load
    virtual void activar() = 0;                // Form_Activate
    virtual void opcion(int indice) = 0;       // CmdOpciones_Click
    virtual void dobleClic() = 0;
    virtual void cambioDeFila(int fila) = 0;
    virtual void ponerVisible(bool visible) = 0;
    virtual void ajustarGrilla() {}            // what one picker adds (hidden columns...)

    bool event(QEvent* e) override;
    void showEvent(QShowEvent* e) override;
    void hideEvent(QHideEvent* e) override;

private:
    QVector<QStringList> mostradas_;
    int refrescando_ = 0;
};

template <class Modelo>
class SelectorDe : public SelectorVista {
public:
    Modelo& modelo() { return m_; }

protected:
    template <class... Args>
    SelectorDe(const QString& nombre, const QStringList& columnas, const QVector<int>& anchos, int ancho, int alto,
               QWidget* padre, Args&&... args)
        : SelectorVista(nombre, columnas, anchos, ancho, alto, padre), m_(std::forward<Args>(args)...)
    {
        m_.cerrar = [this] { done(QDialog::Accepted); };
    }

    Textos textos() const override
    {
        return {m_.Caption, m_.Frame1, m_.Label1, {m_.CmdOpciones[0], m_.CmdOpciones[1]}};
    }
    QVector<QStringList> filas() const override
    {
        QVector<QStringList> t;
        for (const auto& f : m_.filas)
            t.append(textosFila(f));
        return t;
    }
    int fila() const override { return m_.fila; }
    void cargar() override { m_.Form_Load(); }
    void activar() override { m_.Form_Activate(); }
    void opcion(int indice) override { m_.CmdOpciones_Click(indice); }
    void dobleClic() override { m_.grdContrib_DblClick(); }
    void cambioDeFila(int fila) override { m_.grdContrib_RowColChange(fila); }
    void ponerVisible(bool visible) override { m_.visible = visible; }

    Modelo m_;
};
