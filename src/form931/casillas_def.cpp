// The master table of boxes: every casilla that has a box on the form, in the order in which
// the form lists them, with the label of the paper form, its kind and how it shows its figure.
#include "form931/casillas.h"

#include <QHash>

namespace {

using T = TipoCasilla;
using P = Presentacion;

// In the order of mvCasillas.
const DefCasilla kCasillas[] = {
    // Activo, first stop of the scroller.
    {500, "Caja y bancos", T::Entrada, P::Simple},
    {501, "Inv valor razonable y disp para la vta", T::Entrada, P::Simple},
    {502, "Ctas por cobrar comerciales - terc", T::Entrada, P::Simple},
    {503, "Ctas por cobrar comerciales - Relac", T::Entrada, P::Simple},
    {504, "Ctas p cob per.acc, soc, dir y ger", T::Entrada, P::Simple},
    {505, "Ctas por cobrar diversas - Terceros", T::Entrada, P::Simple},
    {506, "Ctas por cobrar diversas - Relacionadas", T::Entrada, P::Simple},
    {507, "Serv y otros contratados por anticipado", T::Entrada, P::Simple},
    {508, "Estimación ctas de cobranza dudosa", T::Entrada, P::Parentesis},
    {509, "Mercaderías", T::Entrada, P::Simple},
    {510, "Productos terminados", T::Entrada, P::Simple},
    {511, "Subprod., desechos y desperdicios", T::Entrada, P::Simple},
    {512, "Productos en proceso", T::Entrada, P::Simple},
    {513, "Materias primas", T::Entrada, P::Simple},
    {514, "Materiales aux, suministros y repuestos", T::Entrada, P::Simple},
    {515, "Envases y embalajes", T::Entrada, P::Simple},
    // Activo, second stop.
    {516, "Existencias por recibir", T::Entrada, P::Simple},
    {517, "Desvalorización de Existencias", T::Entrada, P::Parentesis},
    {518, "Activos no ctes mantenidos para la vta", T::Entrada, P::Simple},
    {519, "Otros activos corrientes", T::Entrada, P::Simple},
    {520, "Inversiones mobiliarias", T::Entrada, P::Simple},
    {521, "Inversiones inmobiliarias  (1)", T::Entrada, P::Simple},
    {522, "Activ. Adq. en arrendamiento finan. (2)", T::Entrada, P::Simple},
    {523, "Inmuebles, maquinaria y equipo", T::Entrada, P::Simple},
    {524, "Depreciación (1) y (2) e IME acumulados", T::Entrada, P::Parentesis},
    {525, "Intangibles", T::Entrada, P::Simple},
    {526, "Activos biológicos", T::Entrada, P::Simple},
    {527, "Deprec act biol, amort y agotam acum", T::Entrada, P::Parentesis},
    {528, "Desvalorización de activo inmovilizado", T::Entrada, P::Parentesis},
    {529, "Activo Diferido", T::Entrada, P::Simple},
    {530, "Otros Activos no corrientes", T::Entrada, P::Simple},
    {531, "TOTAL ACTIVO NETO", T::Calculada, P::Simple},
    // Pasivo.
    {532, "Sobregiros bancarios", T::Entrada, P::Simple},
    {533, "Trib aport sist pens y salud p pagar", T::Entrada, P::Simple},
    {534, "Remuneraciones y part. por pagar", T::Entrada, P::Simple},
    {535, "Ctas por pagar comerciales - Terc", T::Entrada, P::Simple},
    {536, "Ctas por pagar comerciales - Relac", T::Entrada, P::Simple},
    {537, "Ctas p pagar accion, directores ger", T::Entrada, P::Simple},
    {538, "Cuentas por pagar diversas - Terc", T::Entrada, P::Simple},
    {539, "Ctas por pagar diversas - Relac", T::Entrada, P::Simple},
    {540, "Obligaciones Financieras", T::Entrada, P::Simple},
    {541, "Provisiones", T::Entrada, P::Simple},
    {542, "Pasivo diferido", T::Entrada, P::Simple},
    {543, "TOTAL PASIVO", T::Calculada, P::Totales},
    // Patrimonio.
    {544, "Capital", T::Entrada, P::Simple},
    {545, "Acciones de inversión", T::Entrada, P::Simple},
    {546, "Capital adicional", T::Entrada, P::Simple},
    {547, "Resultados no realizados", T::Entrada, P::Simple},
    {548, "Excedente de revaluación", T::Entrada, P::Simple},
    {549, "Reservas", T::Entrada, P::Simple},
    {550, "Resultados acumulados positivo", T::Entrada, P::Simple},
    {551, "Resultados acumulados negativos", T::Entrada, P::Parentesis},
    {552, "Utilidad del Ejercicio", T::Entrada, P::Simple},
    {553, "Pérdida del Ejercicio", T::Entrada, P::Parentesis},
    {554, "TOTAL PATRIMONIO", T::Calculada, P::Totales},
    {555, "TOTAL PASIVO Y PATRIM.", T::Calculada, P::Totales},
    // Carriers of the annex of 477, below the visible part of the determination page.
    {432, "Ingresos afectos", T::Asistente, P::Simple},
    {433, "Ingresos exonerados", T::Asistente, P::Simple},
    // MYPE projection.
    {250, "Imp. a la Renta proyectado", T::Calculada, P::Simple},
    {251, "Pagos a cuenta realizados", T::Entrada, P::Parentesis},
    {252, "Saldo a favor del año anterior", T::Entrada, P::Parentesis},
    {253, "Monto pendiente de pago", T::Calculada, P::Totales},
    // Estado de ganancias y pérdidas.
    {461, "Ventas netas o Ing. por servicios", T::Entrada, P::Simple},
    {462, "Desc., rebajas y bonif. concedidas", T::Entrada, P::Parentesis},
    {463, "Ventas netas", T::Calculada, P::Simple},
    {464, "Costo de ventas", T::Entrada, P::Parentesis},
    {466, "Resultado bruto, Utilidad", T::Calculada, P::Simple},
    {467, "Resultado bruto, Pérdida", T::Calculada, P::Parentesis},
    {468, "Gastos de ventas", T::Entrada, P::Parentesis},
    {469, "Gastos de administración", T::Entrada, P::Parentesis},
    {470, "Resultado de operación, Utilidad", T::Calculada, P::Simple},
    {471, "Resultado de operación, Pérdida", T::Calculada, P::Parentesis},
    {472, "Gastos financieros", T::Entrada, P::Parentesis},
    {473, "Ingresos financieros gravados", T::Asistente, P::Simple},
    {475, "Otros ingresos gravados", T::Entrada, P::Simple},
    {476, "Otros ingresos no gravados", T::Entrada, P::Simple},
    {477, "Enajen. de val. y bienes del Act. F.", T::Asistente, P::Simple},
    {478, "Costo enajen, de val.y bienes A.F.", T::Entrada, P::Parentesis},
    {480, "Gastos diversos", T::Entrada, P::Parentesis},
    {481, "REI del Ejercicio Positivo", T::Entrada, P::Simple},
    {483, "REI del Ejercicio Negativo", T::Entrada, P::Parentesis},
    {484, "Resultado antes de part., Utilidad", T::Calculada, P::Simple},
    {485, "Resultado antes de part., Pérdida", T::Calculada, P::Parentesis},
    {486, "Distribución legal de la renta", T::Entrada, P::Parentesis},
    {487, "Resultado antes del imp., Utilidad", T::Calculada, P::Simple},
    {489, "Resultado antes del imp., Pérdida", T::Calculada, P::Parentesis},
    {490, "Impuesto a la renta", T::Entrada, P::Parentesis},
    {492, "Resultado del ejercicio, Utilidad", T::Calculada, P::Simple},
    {493, "Resultado del ejercicio, Pérdida", T::Calculada, P::Parentesis},
    // Determinación.
    {100, "Utilidad Antes del Impuesto", T::Calculada, P::Simple},
    {101, "Pérdida del ejercicio", T::Calculada, P::Parentesis},
    {103, "Adiciones para determinar la renta imponible", T::Entrada, P::Simple},
    {105, "Deducciones para determinar la renta imponible", T::Entrada, P::Parentesis},
    {106, "Renta neta del ejercicio", T::Calculada, P::Simple},
    {107, "Pérdida del ejercicio", T::Calculada, P::Parentesis},
    {108, "Pérdida Tributaria compensable de ejercicios anteriores", T::Entrada, P::Parentesis},
    {150, "Inversión en Amazonía", T::Entrada, P::Simple},
    {110, "Renta neta imponible", T::Calculada, P::Simple},
    {111, "Pérdida trib. del ejercicio", T::Calculada, P::Parentesis},
    {113, "IMPUESTO A LA RENTA", T::Calculada, P::Simple},
    // Contador and representante legal.
    {208, "RUC del contador", T::Texto, P::Texto},
    {209, "Código de zona de la colegiatura o registro", T::Texto, P::Texto},
    {211, "C.P.C. Nro.", T::Texto, P::Texto},
    {212, "C.M.A. Nro", T::Texto, P::Texto},
    {225, "Tip. Doc. del representante legal", T::Texto, P::Texto},
    {226, "Doc. Identidad del representante legal", T::Texto, P::Texto},
    // The new coefficient, and the carriers of the annex of 473.
    {610, "NUEVO COEFICIENTE O PORCENTAJE", T::Calculada, P::Coeficiente},
    {650, "Ingresos financieros gravados", T::Asistente, P::Simple},
    {651, "Ingresos financieros por diferencia de tipo de cambio", T::Asistente, P::Simple},
};

const QHash<int, const DefCasilla*>& indice()
{
    static const QHash<int, const DefCasilla*> h = [] {
        QHash<int, const DefCasilla*> m;
        for (const DefCasilla& d : kCasillas)
            m.insert(d.numero, &d);
        return m;
    }();
    return h;
}

}  // namespace

const QVector<int>& ordenCasillas()
{
    static const QVector<int> orden = [] {
        QVector<int> v;
        for (const DefCasilla& d : kCasillas)
            v << d.numero;
        return v;
    }();
    return orden;
}

const DefCasilla* defCasilla(int numero)
{
    return indice().value(numero, nullptr);
}

bool existeCasilla(int numero)
{
    return indice().contains(numero);
}

bool esParentesis(int numero)
{
    // 117, 128, 428, 453 and 455 have no box here; they belong to the family's annual form and
    // stay in the list.
    switch (numero) {
    case 101: case 105: case 107: case 108: case 111: case 251: case 252: case 462: case 464:
    case 467: case 468: case 469: case 471: case 472: case 478: case 480: case 483: case 485:
    case 486: case 489: case 490: case 493: case 508: case 517: case 524: case 527: case 528:
    case 551: case 553:
    case 117: case 128: case 428: case 453: case 455:
        return true;
    default:
        return false;
    }
}

bool esCalculada(int numero)
{
    const DefCasilla* d = defCasilla(numero);
    return d && d->tipo == TipoCasilla::Calculada;
}

QString codigoCasilla(int numero)
{
    return QStringLiteral("%1").arg(numero, 3, 10, QLatin1Char('0'));
}
