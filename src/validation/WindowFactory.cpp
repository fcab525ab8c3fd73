#include "validation/WindowFactory.h"

#include "validation/limits/LimiWindow.h"

bool HasWindow(QStringView key)
{
    return key == u"LIMI";
}

TestWindow* CreateTestWindow(QStringView key, const DocumentContext& context, Frame& frame)
{
    if (key == u"LIMI")
        return new LimiWindow(std::make_unique<LimiDocument>(context), frame);
    return nullptr;
}
