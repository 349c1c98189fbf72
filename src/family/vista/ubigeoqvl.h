#pragma once
// The family's geographic-code picker: department, province and district from the catalogue.
// The four filter properties belong to the family; this picker keeps them and does not
// interpret them. CodigoUbigeo is the district's code once one is chosen, else empty.
#include <QString>
#include <QWidget>

class QComboBox;

class UbigeoQVL : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Filtro0 MEMBER filtro0_)
    Q_PROPERTY(QString Filtro1 MEMBER filtro1_)
    Q_PROPERTY(QString Filtro2 MEMBER filtro2_)
    Q_PROPERTY(QString Filtro3 MEMBER filtro3_)
    Q_PROPERTY(QString CodigoUbigeo READ CodigoUbigeo WRITE setCodigoUbigeo NOTIFY codigoCambiado)

public:
    explicit UbigeoQVL(QWidget* padre = nullptr);

    QString CodigoUbigeo() const;
    // Selects department, province and district of a code (as far as the code names them).
    void setCodigoUbigeo(const QString& codigo);

    QComboBox* departamentos() const { return dep_; }
    QComboBox* provincias() const { return prov_; }
    QComboBox* distritos() const { return dist_; }

signals:
    void codigoCambiado(const QString& codigo);

private:
    void llenarProvincias();
    void llenarDistritos();
    static void llenar(QComboBox* combo, const QString& numero, const QString& prefijo);

    QComboBox* dep_;
    QComboBox* prov_;
    QComboBox* dist_;
    QString filtro0_, filtro1_, filtro2_, filtro3_;
};
