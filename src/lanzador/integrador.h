#pragma once
// Stand-in for the family's launcher: its window, titled "Programa Qualvia", must stay open for
// the modules to run. It starts the declaration module and lets the user pick who works.
#include <QString>
#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

class VentanaIntegrador : public QWidget {
    Q_OBJECT
public:
    VentanaIntegrador(const QString& carpeta, const QString& archivoBase, QWidget* padre = nullptr);

    // Starts modulo0931, found beside this program; false (with a message) when it cannot.
    bool abrirModulo();
    // Starts the module as soon as this window is on the screen.
    void abrirModuloAlMostrarse();

private:
    void cargarUsuarios();
    void cambiarUsuario(int indice);

    QString carpeta_;
    QString archivoBase_;
    QComboBox* usuarios_;
    QLabel* estado_;
    QPushButton* modulo_;
};
