#include "validation/DocumentFactory.h"

#include "framework/document/DocumentContext.h"
#include "validation/calibration/TaraDocument.h"
#include "validation/limits/LimiDocument.h"
#include "validation/repeatability/PrecDocument.h"
#include "validation/specificity/SpecDocument.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

template<typename Document>
std::unique_ptr<TestDocument> Make(const DocumentContext& context)
{
    return MakeDocument<Document>(context);
}

struct Entry {
    QLatin1StringView key;
    std::unique_ptr<TestDocument> (*make)(const DocumentContext&);
};

constexpr std::array kEntries = {Entry{"SPEC"_L1, Make<SpecDocument>}, Entry{"TARA"_L1, Make<TaraDocument>},
                                 Entry{"PREC"_L1, Make<PrecDocument>}, Entry{"LIMI"_L1, Make<LimiDocument>}};

} // namespace

std::unique_ptr<TestDocument> CreateDocument(QAnyStringView key, const DocumentContext& context)
{
    const auto found = std::ranges::find_if(kEntries, [&](const Entry& entry) { return key == entry.key; });
    return found == kEntries.end() ? nullptr : found->make(context);
}
