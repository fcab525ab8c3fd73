#include "validation/WindowFactory.h"

#include "framework/document/DocumentContext.h"
#include "framework/document/TestDocument.h"
#include "framework/window/Frame.h"
#include "validation/DocumentFactory.h"
#include "validation/calibration/TaraWindow.h"
#include "validation/limits/LimiWindow.h"
#include "validation/repeatability/PrecWindow.h"
#include "validation/specificity/SpecWindow.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

template<typename Window>
std::unique_ptr<TestWindow> Make(std::unique_ptr<TestDocument> document, Frame& frame)
{
    return MakeWindow<Window>(std::move(document), frame);
}

struct Entry {
    QLatin1StringView key;
    std::unique_ptr<TestWindow> (*make)(std::unique_ptr<TestDocument>, Frame&);
};

constexpr std::array kEntries = {Entry{"SPEC"_L1, Make<SpecWindow>}, Entry{"TARA"_L1, Make<TaraWindow>},
                                 Entry{"PREC"_L1, Make<PrecWindow>}, Entry{"LIMI"_L1, Make<LimiWindow>}};

const Entry* Find(QStringView key)
{
    const auto found = std::ranges::find_if(kEntries, [key](const Entry& entry) { return key == entry.key; });
    return found == kEntries.end() ? nullptr : &*found;
}

} // namespace

bool HasWindow(QStringView key)
{
    return Find(key) != nullptr;
}

std::unique_ptr<TestWindow> CreateTestWindow(QStringView key, const DocumentContext& context, Frame& frame)
{
    const Entry* entry = Find(key);
    return entry == nullptr ? nullptr : entry->make(CreateDocument(key, context), frame);
}
