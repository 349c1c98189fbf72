#include "lanzador/integrador.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include "shell/arranque.h"
#include "shell/familia.h"
#include "shell/ini.h"

VentanaIntegrador::VentanaIntegrador(const QString& carpeta, const QString& archivoBase, QWidget* padre)
    : QWidget(padre), carpeta_(carpeta), archivoBase_(archivoBase)
{
    setObjectName(QStringLiteral("Integrador"));
    setWindowTitle(kTituloIntegrador);

    auto* titulo = new QLabel(QStringLiteral("<b style='font-size:16pt'>Programa Qualvia</b><br>"
                                             "Integrador de formularios"),
                              this);
    titulo->setAlignment(Qt::AlignCenter);

    usuarios_ = new QComboBox(this);
    usuarios_->setObjectName(QStringLiteral("cboUsuario"));
    auto* datos = new QFormLayout;
    datos->addRow(QStringLiteral("&Usuario:"), usuarios_);
    auto* lblCarpeta = new QLabel(QDir::toNativeSeparators(carpeta_), this);
    lblCarpeta->setTextInteractionFlags(Qt::TextSelectableByMouse);
    datos->addRow(QStringLiteral("Carpeta:"), lblCarpeta);
    auto* lblIni = new QLabel(archivoIni(), this);
    lblIni->setTextInteractionFlags(Qt::TextSelectableByMouse);
    datos->addRow(QStringLiteral("Configuración:"), lblIni);

    modulo_ = new QPushButton(style()->standardIcon(QStyle::SP_FileIcon), QStringLiteral("Declaración 0931"), this);
    modulo_->setObjectName(QStringLiteral("cmdModulo0931"));
    modulo_->setDefault(true);
    modulo_->setMinimumHeight(40);
    auto* salir = new QPushButton(QStringLiteral("&Salir"), this);
    connect(modulo_, &QPushButton::clicked, this, &VentanaIntegrador::abrirModulo);
    connect(salir, &QPushButton::clicked, this, &QWidget::close);

    estado_ = new QLabel(this);
    estado_->setWordWrap(true);

    auto* botones = new QHBoxLayout;
    botones->addWidget(modulo_, 1);
    botones->addWidget(salir);
    auto* capa = new QVBoxLayout(this);
    capa->addWidget(titulo);
    capa->addLayout(datos);
    capa->addLayout(botones);
    capa->addWidget(estado_);
    capa->addStretch();
    resize(460, 240);

    cargarUsuarios();
    connect(usuarios_, &QComboBox::currentIndexChanged, this, &VentanaIntegrador::cambiarUsuario);
}

void VentanaIntegrador::cargarUsuarios()
{
    const QString actual = leerOpcion(QStringLiteral("SysUser"));
    for (const auto& [usuario, tipo] : usuariosDeBase(archivoBase_)) {
        const QString detalle = tipo == QLatin1String("0") ? QStringLiteral("ve todos los contribuyentes")
                                                           : QStringLiteral("ve sus contribuyentes");
        usuarios_->addItem(usuario + QStringLiteral("  (") + detalle + QLatin1Char(')'), usuario);
    }
    const int i = usuarios_->findData(actual);
    if (i >= 0) {
        usuarios_->setCurrentIndex(i);
    } else if (!actual.isEmpty()) {
        usuarios_->addItem(actual + QStringLiteral("  (sin registro de usuario)"), actual);
        usuarios_->setCurrentIndex(usuarios_->count() - 1);
    }
}

void VentanaIntegrador::cambiarUsuario(int indice)
{
    if (indice >= 0)
        escribirOpcion(QStringLiteral("SysUser"), usuarios_->itemData(indice).toString());
}

bool VentanaIntegrador::abrirModulo()
{
    const QString programa = QCoreApplication::applicationDirPath() + QStringLiteral("/modulo0931");
    if (!QFileInfo(programa).isExecutable()) {
        QMessageBox::critical(this, kTituloIntegrador,
                              QStringLiteral("No se encuentra el módulo 0931 en %1.").arg(programa));
        return false;
    }
    if (!QProcess::startDetached(programa, {}, carpeta_)) {
        QMessageBox::critical(this, kTituloIntegrador, QStringLiteral("No se pudo iniciar el módulo 0931."));
        return false;
    }
    estado_->setText(QStringLiteral("Módulo 0931 iniciado."));
    return true;
}

void VentanaIntegrador::abrirModuloAlMostrarse()
{
    // The module looks for this window by its title: start it once the window is on screen.
    auto* espera = new QTimer(this);
    espera->setInterval(50);
    connect(espera, &QTimer::timeout, this, [this, espera] {
        if (windowHandle() && windowHandle()->isExposed()) {
            espera->stop();
            espera->deleteLater();
            QTimer::singleShot(150, this, &VentanaIntegrador::abrirModulo);
        }
    });
    espera->start();
}
