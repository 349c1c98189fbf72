// Geographic-code picker over the catalogue: departments "030", provinces "031", districts "001".
#include "family/vista/ubigeoqvl.h"

#include "basic/errores.h"
#include "store/base.h"

#include <QComboBox>
#include <QFormLayout>
#include <QSqlQuery>

UbigeoQVL::UbigeoQVL(QWidget* padre)
    : QWidget(padre), dep_(new QComboBox), prov_(new QComboBox), dist_(new QComboBox)
{
    dep_->setObjectName(QStringLiteral("departamento"));
    prov_->setObjectName(QStringLiteral("provincia"));
    dist_->setObjectName(QStringLiteral("distrito"));
    for (QComboBox* c : {dep_, prov_, dist_}) {
        c->setMinimumWidth(260);
        c->setMaxVisibleItems(20);
    }
    auto* f = new QFormLayout(this);
    f->setContentsMargins(0, 0, 0, 0);
    f->addRow(tr("&Departamento"), dep_);
    f->addRow(tr("&Provincia"), prov_);
    f->addRow(tr("Dis&trito"), dist_);

    llenar(dep_, QStringLiteral("030"), QString());
    dep_->setCurrentIndex(-1);
    connect(dep_, &QComboBox::currentIndexChanged, this, [this] {
        llenarProvincias();
        emit codigoCambiado(CodigoUbigeo());
    });
    connect(prov_, &QComboBox::currentIndexChanged, this, [this] {
        llenarDistritos();
        emit codigoCambiado(CodigoUbigeo());
    });
    connect(dist_, &QComboBox::currentIndexChanged, this, [this] { emit codigoCambiado(CodigoUbigeo()); });
}

// Items show the name; the code is the item's data.
void UbigeoQVL::llenar(QComboBox* combo, const QString& numero, const QString& prefijo)
{
    const QSignalBlocker bloqueo(combo);
    combo->clear();
    try {
        QSqlQuery q = prefijo.isEmpty()
            ? ejecutar(QStringLiteral("SELECT Argumento, Funcion FROM PARAM WHERE Numero = ? ORDER BY Argumento"), {numero})
            : ejecutar(QStringLiteral("SELECT Argumento, Funcion FROM PARAM WHERE Numero = ? AND substr(Argumento, 1, ?) = ? "
                                      "ORDER BY Argumento"),
                       {numero, prefijo.size(), prefijo});
        while (q.next()) {
            const QString codigo = q.value(0).toString().trimmed();
            const QString nombre = q.value(1).toString().left(30).trimmed();
            combo->addItem(QStringLiteral("%1  %2").arg(codigo, nombre), codigo);
        }
    } catch (const ErrorVB&) {
        // Without a catalogue the picker offers nothing to choose.
    }
    combo->setCurrentIndex(-1);
}

void UbigeoQVL::llenarProvincias()
{
    const QString d = dep_->currentData().toString();
    if (d.isEmpty()) {
        const QSignalBlocker b(prov_);
        prov_->clear();
    } else {
        llenar(prov_, QStringLiteral("031"), d);
    }
    llenarDistritos();
}

void UbigeoQVL::llenarDistritos()
{
    const QString p = prov_->currentData().toString();
    if (p.isEmpty()) {
        const QSignalBlocker b(dist_);
        dist_->clear();
    } else {
        llenar(dist_, QStringLiteral("001"), p);
    }
}

QString UbigeoQVL::CodigoUbigeo() const
{
    return dist_->currentData().toString();
}

void UbigeoQVL::setCodigoUbigeo(const QString& codigo)
{
    const QString c = codigo.trimmed();
    dep_->setCurrentIndex(dep_->findData(c.left(2)));
    if (c.size() >= 4)
        prov_->setCurrentIndex(prov_->findData(c.left(4)));
    if (c.size() >= 6)
        dist_->setCurrentIndex(dist_->findData(c.left(6)));
}
