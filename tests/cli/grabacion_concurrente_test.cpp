// The window's save of a new declaration while another program stores the same declaration:
// the check that it doesn't exist yet is made under the write lock, so the second save is
// refused and nothing of it is kept.
#include "form931/grabacion_comun.h"
#include "store/motor_directo.h"

#include <QSqlQuery>

#include <chrono>
#include <future>
#include <thread>
#include <gtest/gtest.h>

using namespace prueba931;

namespace {

const QString kPeriodo = QStringLiteral("202605");   // balance at 30 April
const QString kYaExiste = QStringLiteral("La declaración que desea registrar ya existe 20100001234. "
                                         "Elija la opción modificar declaración o elija otro contribuyente.");

class GrabacionConcurrente : public PruebaConBase {
protected:
    EntornoSinPantalla entorno;
    Frm931 frm{&entorno};
};

// The other program takes the write lock and writes its declaration before the window presses
// "&Grabar", and commits only while the window waits for the lock: the window's first look
// can't see the uncommitted row, the look under the lock does.
TEST_F(GrabacionConcurrente, LaSegundaGrabacionDeUnaNuevaSeRehusaSinDejarNada)
{
    reproducirEntrada(frm, entorno, declaracionConsistente());
    ASSERT_TRUE(frm.mbModificado);

    std::promise<void> tomado;
    std::thread otro([&, base = familia.baseDatos()] {
        MotorDirecto motor(base);
        const bool bien = motor.ejecutar("BEGIN IMMEDIATE;"
                                         "INSERT INTO CAB (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, FEC_PRO, ESTADO, cNumero)"
                                         " VALUES (6, '20100001234', '202605', '0931', '01/01/2026', 0, '000000');"
                                         "INSERT INTO DET (TIP_DOC_D, DOC_ID_D, PERIODO, FORMULARIO, CASILLA, I_VALOR)"
                                         " VALUES (6, '20100001234', '202605', '0931', '500', 'OTRO');");
        tomado.set_value();
        std::this_thread::sleep_for(std::chrono::milliseconds(1500));
        if (bien)
            motor.ejecutar("COMMIT");
    });
    tomado.get_future().wait();
    frm.CmdGrabar_Click();
    otro.join();

    ASSERT_FALSE(familia.respondedor().mostrados.isEmpty());
    EXPECT_EQ(familia.respondedor().mostrados.last().texto, kYaExiste);
    EXPECT_TRUE(frm.mbModificado) << "the work stays unsaved in the window";
    EXPECT_EQ(frm.SSTab1.Tab, 0);
    // What stands is the other program's declaration, untouched.
    EXPECT_EQ(volcado(QStringLiteral("CAB"), kPeriodo),
              QStringList{QStringLiteral("6|20100001234|202605|0931|0|01/01/2026|0||||||000000")});
    EXPECT_EQ(mapaDet(kPeriodo), (QMap<QString, QString>{{QStringLiteral("500"), QStringLiteral("OTRO")}}));
}

}  // namespace
