#include "framework/files/CodePage.h"

#include "stats/RuntimeFailure.h"

#include <QStringConverter>

#include <algorithm>
#include <optional>

namespace
{

constexpr const char* kCodePage = "windows-1252";

bool IsAscii(QByteArrayView bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 128; });
}

bool IsAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
}

/// Nothing when the code page lacks a character: what comes back must be what went in.
std::optional<QByteArray> Encode(const QString& text)
{
    const QByteArray bytes = QStringEncoder(kCodePage)(text);
    if (FromCodePage(bytes) != text)
        return std::nullopt;
    return bytes;
}

/// The first character, of one or two code units, that the code page lacks.
QString FirstLacking(const QString& text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype length = text[i].isHighSurrogate() && i + 1 < text.size() ? 2 : 1;
        const QString character = text.mid(i, length);
        if (!Encode(character))
            return character;
    }
    return text;
}

} // namespace

QString FromCodePage(QByteArrayView bytes)
{
    if (IsAscii(bytes))
        return QString::fromLatin1(bytes);
    QStringDecoder decoder(kCodePage);
    return decoder(bytes);
}

QByteArray ToCodePage(const QString& text, QStringView field)
{
    if (IsAscii(text))
        return text.toLatin1();
    if (const auto bytes = Encode(text))
        return *bytes;
    const QString message =
        QStringLiteral("Il campo \"%1\" contiene il carattere \"%2\", che non può stare in un file di dati")
            .arg(field, FirstLacking(text));
    throw RuntimeFailure(FailureKind::InvalidArgument, message.toStdString());
}
