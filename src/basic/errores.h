#pragma once
// Run-time errors of the language the rules are written in. A procedure that would have
// raised a run-time error throws ErrorVB; the handlers that trap errors catch it and show
// the description, a line feed and the number as Str gives it.
#include <QString>
#include <exception>

class ErrorVB : public std::exception {
public:
    ErrorVB(int numero, QString descripcion) : numero(numero), descripcion(std::move(descripcion)) {}
    const char* what() const noexcept override { return "ErrorVB"; }
    int numero;
    QString descripcion;
};

// Numbers in use.
enum : int {
    kErrArgumento = 5,           // "Llamada a procedimiento o argumento no válidos"
    kErrDesbordamiento = 6,      // "Desbordamiento"
    kErrSinMemoria = 7,
    kErrSubindice = 9,
    kErrDivisionCero = 11,       // "División por cero"
    kErrTipos = 13,
    kErrArchivoNoEncontrado = 53,
    kErrArchivoAbierto = 55,
    kErrValorPropiedad = 380,
    kErrSinImpresora = 482,
    kErrBaseBloqueada = 3051,
};

// Convenience constructors with the runtime's Spanish texts.
ErrorVB errorDesbordamiento();
ErrorVB errorArgumento();        // 5: a negative length, a position before the first
ErrorVB errorDivisionCero();     // 11
ErrorVB errorTipos();            // 13: a text that is no number where a number is needed
ErrorVB errorBaseDatos(const QString& texto, int numero = 3146);
