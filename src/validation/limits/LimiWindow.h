// The window of the test of the detection and quantitation limits.
#pragma once

#include "framework/window/TestWindow.h"

class LimiWindow : public TestWindow
{
    Q_OBJECT

public:
    LimiWindow(std::unique_ptr<TestDocument> document, Frame& frame);

private:
    QGroupBox* ResultFrame();
};
