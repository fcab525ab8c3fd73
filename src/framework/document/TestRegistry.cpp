#include "framework/document/TestRegistry.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

QString TestInfo::TitleNoFile() const
{
    return TitlePrefix() + "no file"_L1;
}

QString TestInfo::TitlePrefix() const
{
    return title + " - "_L1;
}

QString TestInfo::Filter() const
{
    return QStringLiteral("%1 (*.%2)|*.%2").arg(filterName, extension);
}

std::span<const TestInfo> TestRegistry()
{
    // Deliberate: repeatability is "Ripetibilità" in titles and panels, and "Precisione" in filter and guide.
    static const std::array kTests = {
        TestInfo{"SPEC"_L1, "Spec"_L1, u"Specificità"_s, "SPC"_L1, u"Specificità"_s, u"Specificità"_s,
                 "Spec"_L1},
        TestInfo{"TARA"_L1, "Tara"_L1, u"Taratura"_s, "TAR"_L1, u"Taratura"_s, u"Taratura"_s, "Tara"_L1},
        TestInfo{"PREC"_L1, "Prec"_L1, u"Ripetibilità"_s, "PRE"_L1, u"Precisione"_s, u"Precisione"_s,
                 "Ripe"_L1},
        TestInfo{"ACCU"_L1, "Accu"_L1, u"Accuratezza"_s, "ACC"_L1, u"Accuratezza"_s, u"Accuratezza"_s,
                 "Accu"_L1},
        TestInfo{"LIMI"_L1, "Limi"_L1, u"Limiti"_s, "LIM"_L1, u"Limiti"_s, u"Limiti"_s, "Limi"_L1},
        TestInfo{"RIPR"_L1, "Ripr"_L1, u"Riproducibilità"_s, "RIP"_L1, u"Riproducibilità"_s,
                 u"Riproducibilità"_s, "Ripr"_L1},
        TestInfo{"PRIN"_L1, "Prin"_L1, u"Precisione intermedia"_s, "PRI"_L1, u"Precisione intermedia"_s,
                 u"Precisione intermedia"_s, "Prin"_L1},
    };
    return kTests;
}

const TestInfo* FindTest(QAnyStringView key)
{
    const auto found =
        std::ranges::find_if(TestRegistry(), [&](const TestInfo& info) { return info.key == key; });
    return found == TestRegistry().end() ? nullptr : &*found;
}

const TestInfo* FindTestOfFile(QStringView fileName)
{
    const QStringView extension = fileName.sliced(fileName.lastIndexOf(u'.') + 1);
    const auto found = std::ranges::find_if(TestRegistry(), [&](const TestInfo& info) {
        return fileName.contains(u'.') && extension.compare(info.extension, Qt::CaseInsensitive) == 0;
    });
    return found == TestRegistry().end() ? nullptr : &*found;
}
