#include "validation/DocumentFactory.h"

#include "validation/limits/LimiDocument.h"
#include "validation/repeatability/PrecDocument.h"
#include "validation/specificity/SpecDocument.h"

std::unique_ptr<TestDocument> CreateDocument(QAnyStringView key, const DocumentContext& context)
{
    if (key == u"LIMI")
        return std::make_unique<LimiDocument>(context);
    if (key == u"PREC")
        return std::make_unique<PrecDocument>(context);
    if (key == u"SPEC")
        return std::make_unique<SpecDocument>(context);
    return nullptr;
}
