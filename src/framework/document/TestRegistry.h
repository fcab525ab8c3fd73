// The seven tests and what the program calls them.
#pragma once

#include <QAnyStringView>
#include <QLatin1StringView>
#include <QString>
#include <QStringView>

#include <span>

/// One test's entry. All texts are fixed for the life of the program.
struct TestInfo {
    QLatin1StringView key;         ///< four letters, upper case: "LIMI"
    QLatin1StringView windowClass; ///< "Limi"
    QString title;                 ///< "Limiti": the window's title begins so
    QLatin1StringView extension;   ///< without the point, upper case
    QString filterName;            ///< what the file dialog calls its files: "Limiti"
    QString guideTitle;            ///< what its guide is headed with
    QLatin1StringView panel;       ///< key and text of its status panel

    QString TitleNoFile() const; ///< "Limiti - no file"
    QString TitlePrefix() const; ///< "Limiti - "
    QString Filter() const;      ///< "Limiti (*.LIM)|*.LIM"
};

/// All seven, in the order in which keys are compared: SPEC, TARA, PREC, ACCU, LIMI, RIPR, PRIN.
std::span<const TestInfo> TestRegistry();

/// The entry of a key, or null.
const TestInfo* FindTest(QAnyStringView key);

/// The entry whose data files the name's extension stands for, in any case, or null.
const TestInfo* FindTestOfFile(QStringView fileName);
