#pragma once
// A connection of the engine's own library, outside the module: what an SQL tool or another
// program of the family does to the shared database behind the module's back.
#include <QString>

#include <sqlite3.h>
#include <string>

class MotorDirecto {
public:
    explicit MotorDirecto(const QString& archivo)
    {
        if (sqlite3_open_v2(archivo.toUtf8().constData(), &db_, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
            error_ = sqlite3_errmsg(db_);
            sqlite3_close(db_);
            db_ = nullptr;
        }
    }
    ~MotorDirecto() { sqlite3_close(db_); }
    MotorDirecto(const MotorDirecto&) = delete;
    MotorDirecto& operator=(const MotorDirecto&) = delete;

    // Runs the statements; true when all went through (the reason of a failure in error()).
    bool ejecutar(const std::string& sql)
    {
        if (!db_)
            return false;
        char* mensaje = nullptr;
        const bool bien = sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &mensaje) == SQLITE_OK;
        error_ = mensaje ? mensaje : "";
        sqlite3_free(mensaje);
        return bien;
    }
    const std::string& error() const { return error_; }

private:
    sqlite3* db_ = nullptr;
    std::string error_;
};
