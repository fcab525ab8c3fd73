// The 8-bit code page of the data files, Windows-1252.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// The text of these bytes. Every byte stands for one character, so that the bytes can be had back.
QString FromCodePage(QByteArrayView bytes);

/// The bytes of a text that will stand in a data file. `field` is the caption of the field that holds it.
/// Fails with InvalidArgument when the code page lacks one of the characters; the text names field and
/// character.
QByteArray ToCodePage(const QString& text, QStringView field);
