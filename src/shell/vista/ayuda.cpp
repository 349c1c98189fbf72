#include "shell/vista/ayuda.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

#include "basic/msgbox.h"

QString archivoAyudaIncluido()
{
    const QString nombre = QStringLiteral("/ayuda/Ql931.html");
    // Beside an installed program first, then the copy built into the program.
    const QString instalado = QCoreApplication::applicationDirPath() + QStringLiteral("/../share/qualvia") + nombre;
    if (QFileInfo::exists(instalado))
        return instalado;
    return QStringLiteral(":/data") + nombre;
}

void mostrarAyuda(const QString& archivo, const QString& contexto, QWidget* padre)
{
    static QPointer<QDialog> visor;
    QString pagina = archivo;
    if (!QFileInfo::exists(pagina))
        pagina = archivoAyudaIncluido();
    QFile f(pagina);
    if (!f.open(QIODevice::ReadOnly)) {
        MsgBox(QStringLiteral("No se encuentra el archivo de ayuda ") + archivo, vbExclamation,
               QStringLiteral("Ayuda"));
        return;
    }
    const QString html = QString::fromUtf8(f.readAll());

    if (!visor) {
        visor = new QDialog(padre, Qt::Window);
        visor->setObjectName(QStringLiteral("CMDlgHlp"));
        visor->setAttribute(Qt::WA_DeleteOnClose);
        visor->setWindowTitle(QStringLiteral("Ayuda - 0931 Modificación de coeficiente o porcentaje"));
        auto* texto = new QTextBrowser(visor);
        texto->setObjectName(QStringLiteral("texto"));
        texto->setOpenExternalLinks(false);
        auto* cerrar = new QDialogButtonBox(QDialogButtonBox::Close, visor);
        cerrar->button(QDialogButtonBox::Close)->setText(QStringLiteral("&Cerrar"));
        QObject::connect(cerrar, &QDialogButtonBox::rejected, visor.data(), &QDialog::close);
        auto* capa = new QVBoxLayout(visor);
        capa->addWidget(texto);
        capa->addWidget(cerrar);
        visor->resize(620, 520);
    }
    auto* texto = visor->findChild<QTextBrowser*>(QStringLiteral("texto"));
    texto->setSearchPaths({QFileInfo(pagina).absolutePath()});
    texto->setHtml(html);
    visor->show();
    visor->raise();
    visor->activateWindow();
    if (!contexto.isEmpty())
        QTimer::singleShot(0, texto, [texto, contexto] { texto->scrollToAnchor(contexto); });
}
