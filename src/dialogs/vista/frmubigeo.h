#pragma once
// The geographic-code picker window: the family control UbigeoQVL1 and the two buttons of
// cmdAccion, over the model FrmUbigeo.
#include "dialogs/ubigeo.h"

#include <QDialog>

class QPushButton;
class UbigeoQVL;

class frmUbigeo : public QDialog {
    Q_OBJECT
public:
    // The caption is "Ubigeo Zona " + zone; the zone asked for is in G().gsZonaAbrir.
    explicit frmUbigeo(const QString& caption, QWidget* padre = nullptr);

    FrmUbigeo& modelo() { return m_; }
    UbigeoQVL* UbigeoQVL1;
    QPushButton* cmdAccion[2];

public slots:
    void reject() override;

private:
    void accion(int indice);
    FrmUbigeo m_;
};
