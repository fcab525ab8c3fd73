#include "stats/RuntimeFailure.h"

#include <utility>

namespace
{

const char* KindText(FailureKind kind)
{
    switch (kind) {
    case FailureKind::InvalidArgument:
        return "Argomento non valido";
    case FailureKind::Overflow:
        return "Overflow";
    case FailureKind::DivisionByZero:
        return "Divisione per zero";
    case FailureKind::TypeMismatch:
        return "Tipo non corrispondente";
    case FailureKind::FileNotFound:
        return "File non trovato";
    case FailureKind::DeviceError:
        return "Errore di lettura o scrittura";
    case FailureKind::DiskFull:
        return "Disco pieno";
    case FailureKind::EndOfFile:
        return "Fine del file raggiunta prima del previsto";
    case FailureKind::PermissionDenied:
        return "Autorizzazione negata";
    case FailureKind::PathAccess:
        return "Il percorso non è quello di un file";
    case FailureKind::PathNotFound:
        return "Percorso non trovato";
    case FailureKind::IniKey:
        return "Errore nella lettura di una chiave";
    case FailureKind::DatabaseNotOpen:
        return "Impossibile aprire il database";
    case FailureKind::DatabaseNotWritten:
        return "Impossibile scrivere nel database";
    case FailureKind::FieldTooSmall:
        return "Testo più lungo del campo";
    case FailureKind::TableNotFound:
        return "Tabella non trovata nel database";
    }
    return "";
}

} // namespace

RuntimeFailure::RuntimeFailure(FailureKind kind) : RuntimeFailure(kind, KindText(kind)) {}

RuntimeFailure::RuntimeFailure(FailureKind kind, std::string text) : m_kind(kind), m_text(std::move(text)) {}
