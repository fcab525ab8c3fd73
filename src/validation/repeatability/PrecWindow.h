// The window of the repeatability test.
#pragma once

#include "framework/window/TestWindow.h"
#include "validation/repeatability/PrecDocument.h"

class PrecWindow : public TestWindow
{
    Q_OBJECT

public:
    PrecWindow(std::unique_ptr<PrecDocument> document, Frame& frame);

private:
    QWidget* DataPage();
    QGroupBox* ResultFrame();
};
