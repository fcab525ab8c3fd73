// The window of the repeatability test.
#pragma once

#include "framework/window/TestWindow.h"

class PrecWindow : public TestWindow
{
    Q_OBJECT

public:
    PrecWindow(std::unique_ptr<TestDocument> document, Frame& frame);

private:
    QGroupBox* ResultFrame();
};
