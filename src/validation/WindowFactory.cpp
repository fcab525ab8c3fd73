#include "validation/WindowFactory.h"

#include "validation/limits/LimiWindow.h"
#include "validation/repeatability/PrecWindow.h"
#include "validation/specificity/SpecWindow.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

using Maker = TestWindow* (*)(const DocumentContext&, Frame&);

template<typename Window, typename Document>
TestWindow* Make(const DocumentContext& context, Frame& frame)
{
    return new Window(std::make_unique<Document>(context), frame);
}

struct Entry {
    QLatin1StringView key;
    Maker make;
};

constexpr std::array kEntries = {Entry{"SPEC"_L1, Make<SpecWindow, SpecDocument>},
                                 Entry{"PREC"_L1, Make<PrecWindow, PrecDocument>},
                                 Entry{"LIMI"_L1, Make<LimiWindow, LimiDocument>}};

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

TestWindow* CreateTestWindow(QStringView key, const DocumentContext& context, Frame& frame)
{
    const Entry* entry = Find(key);
    return entry == nullptr ? nullptr : entry->make(context, frame);
}
