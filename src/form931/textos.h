#pragma once
// Messages that both the save checks and the validation passes show, written once.
#include <QString>

namespace TextosFormulario {
inline const QString ResolucionIncompleta = QStringLiteral("Número de Resolución incompleto");
inline const QString ResolucionCeros = QStringLiteral("Debe ingresar un Número de Resolución");
inline const QString Inicio = QStringLiteral("Señale el inicio de actividades en el ejercicio");
inline const QString MesBalance =
    QStringLiteral("Seleccione el mes al que debe corresponder la presentación del balance");
inline const QString AnioAgrario = QStringLiteral(
    "El año de la fecha del formulario 4888 debe corresponder al año de la presentación");
inline const QString RucIgual = QStringLiteral("El RUC no puede ser igual al RUC del Contribuyente.");
inline const QString NotificacionFueraDeRango = QStringLiteral(
    "La fecha de notificación no puede ser anterior al 22/03/2013 ni mayor a la fecha del sistema");
inline const QString Precedente =
    QStringLiteral("Indique si obtuvo utilidad o pérdida en el Ejercicio precedente al anterior");
inline const QString Regimen = QStringLiteral("Debe señalar el regimen de renta");
inline const QString Anterior = QStringLiteral("Indique si obtuvo utilidad o pérdida en el Ejercicio anterior");
inline const QString FechaAgrarioFutura = QStringLiteral(
    "La fecha de presentación del formulario 4888 no puede ser mayor a la fecha del sistema");
inline const QString NotificacionNoValida = QStringLiteral("La fecha de notificación no es válida");
inline const QString RucNoValido = QStringLiteral("El RUC no es Válido.");
inline const QString ResolucionObligatoria = QStringLiteral(
    "El ingreso de los datos de la Resolución y Fecha de Notificación son campos obligatorios");
}  // namespace TextosFormulario
