#pragma once
// A temporary family folder with a fresh database, for every test that touches the store.
// Construction resets the globals, creates <tmp>/TMP, RPT, BMP, 0931 and the database with the
// demo data, fills G() as the settings reader would, opens the connection and installs a
// scripted answerer; destruction undoes all of it.
#include "basic/respondedor_guion.h"
#include "store/crear.h"

#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

// Demo rows of every test database (see Demo::contribuyentes()).
namespace DatosDemo {
inline const QString kAdmin = Demo::kUsuarioAdmin;           // type "0": sees every taxpayer
inline const QString kContador = Demo::kUsuarioContador;     // type "1": sees its own
// Taxpayers of CONTADOR.
inline const QString kRucAndina = QStringLiteral("20100001234");
inline const QString kNombreAndina = QStringLiteral("COMERCIAL ANDINA DEMO S.A.C.");
inline const QString kRucPacifico = QStringLiteral("20500004569");
inline const QString kNombrePacifico = QStringLiteral("INDUSTRIAS DEL PACIFICO DEMO S.A.");
inline const QString kRucPersona = QStringLiteral("10400001117");
inline const QString kNombrePersona = QStringLiteral("QUISPE MAMANI ROSA DEMO");
// Taxpayers of ADMIN.
inline const QString kRucNorte = QStringLiteral("20600007891");
inline const QString kNombreNorte = QStringLiteral("AGROEXPORTADORA DEL NORTE DEMO S.A.A.");
inline const QString kRucAmazonia = QStringLiteral("20470002221");
inline const QString kNombreAmazonia = QStringLiteral("SERVICIOS AMAZONICOS DEMO E.I.R.L.");
// A CONT row of document type 1 (DNI) owned by CONTADOR, which no list of this form shows.
inline const QString kDniOtroTipo = QStringLiteral("40000111");
}

class FamiliaPrueba {
public:
    explicit FamiliaPrueba(bool conDemo = true);
    ~FamiliaPrueba();
    FamiliaPrueba(const FamiliaPrueba&) = delete;
    FamiliaPrueba& operator=(const FamiliaPrueba&) = delete;

    QString carpeta() const;      // gsPathSys, with its trailing "/"
    QString baseDatos() const;    // gsBaseDatos
    RespondedorGuion& respondedor() { return respondedor_; }
    // Changes the user of the run (gsUsuario), as another SysUser would.
    void comoUsuario(const QString& usuario);

private:
    QTemporaryDir dir_;
    RespondedorGuion respondedor_;
};

class PruebaConBase : public ::testing::Test {
protected:
    FamiliaPrueba familia;
};
