#pragma once
// The geographic-code picker as a presentation model: department, province and district from
// the catalogue, the four filters that the zone asked for sets, and the code accepted.
// Exchanges with the declaration form through G().gsZonaAbrir, gsUbigeoSel, gsUbigeoCopia and
// gsZonaSel.
#include <QString>
#include <QVector>

struct LugarUbigeo {
    QString codigo;    // 2 characters a department, 4 a province, 6 a district
    QString nombre;
};

class FrmUbigeo {
public:
    explicit FrmUbigeo(const QString& caption = QString()) : Caption(caption) {}

    QString Caption;                 // "Ubigeo Zona " + zone, given by the caller
    // The picker's four filters, as the zone asked for leaves them; opaque to this module.
    QString Filtro0, Filtro1, Filtro2, Filtro3;
    QVector<LugarUbigeo> departamentos, provincias, distritos;
    int departamento = -1, provincia = -1, distrito = -1;   // indexes in the lists, -1 none
    bool cerrado = false;

    // The code chosen: the district's, empty until a district is chosen.
    QString CodigoUbigeo() const;
    // Points the three lists at a code (its first 2 and 4 characters and the whole code).
    void setCodigoUbigeo(const QString& codigo);

    void Form_Load();
    void elegirDepartamento(int i);  // fills the provinces of the department
    void elegirProvincia(int i);     // fills the districts of the province
    void elegirDistrito(int i);
    // 0 "&Aceptar", 1 "&Cancelar".
    void cmdAccion_Click(int Index);
    static QString captionAccion(int Index) { return Index == 0 ? QStringLiteral("&Aceptar") : QStringLiteral("&Cancelar"); }
};
