// The settings file: a text file of sections and keys.
#pragma once

#include <QString>

/// Reads and writes one key at a time. Sections and keys are compared without regard to case; comments, blank
/// lines, foreign sections and their bytes stay as they are.
class IniManager
{
public:
    const QString& FileName() const { return m_fileName; }
    void SetFileName(const QString& fileName) { m_fileName = fileName.trimmed(); }
    /// The current section.
    const QString& ApplicationKey() const { return m_applicationKey; }
    void SetApplicationKey(const QString& key) { m_applicationKey = key.trimmed(); }

    /// The value of a key of the current section, trimmed, without control characters, up to 999 characters;
    /// the default where file, section or key are missing or the value is empty. Fails with IniKey when that
    /// leaves nothing.
    QString GetValue(const QString& keyName, const QString& strDefault) const;

    /// Writes a key, with file and section where they are missing. False when the file could not be written,
    /// or not be read to its end, or the value can't stand in one line; the file is as it was then.
    [[nodiscard]] bool SetValue(const QString& keyName, const QString& strValue) const;

private:
    QString m_fileName;
    QString m_applicationKey;
};

/// Writes a new settings file with its default values. Fails as WriteSafeFile does.
void WriteDefaultSettings(const QString& fileName);
