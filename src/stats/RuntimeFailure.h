// The one exception of the program: a run-time failure, told by its number and its text.
#pragma once

#include <exception>
#include <string>

/// The failures that the program knows. The numbers are those of the run-time system for which the data files
/// and the messages were made; they stand in the message box and in the companion's output.
enum class FailureKind {
    InvalidArgument = 5,
    Overflow = 6,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceError = 57,
    DiskFull = 61,
    EndOfFile = 62,
    PermissionDenied = 70,
    PathAccess = 75,
    PathNotFound = 76,
    IniKey = 1025,
    DatabaseNotOpen = 3024,
    DatabaseNotWritten = 3027,
    TableNotFound = 3078,
    FieldTooSmall = 3163,
};

/// Thrown by checked arithmetic, by conversions and by the readers and writers of files. It is caught where
/// a failure is shown or passed over, and nowhere else.
class RuntimeFailure : public std::exception
{
public:
    /// With the kind's own text.
    explicit RuntimeFailure(FailureKind kind);
    /// With a text that says more: which file, which field.
    RuntimeFailure(FailureKind kind, std::string text);

    FailureKind Kind() const { return m_kind; }
    int Number() const { return static_cast<int>(m_kind); }
    /// Italian, UTF-8, without a full stop at its end.
    const std::string& Text() const { return m_text; }
    const char* what() const noexcept override { return m_text.c_str(); }

private:
    FailureKind m_kind;
    std::string m_text;
};
