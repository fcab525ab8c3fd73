#include "validation/DocumentFactory.h"

#include "validation/limits/LimiDocument.h"

std::unique_ptr<TestDocument> CreateDocument(QAnyStringView key, const DocumentContext& context)
{
    if (key == u"LIMI")
        return std::make_unique<LimiDocument>(context);
    return nullptr;
}
