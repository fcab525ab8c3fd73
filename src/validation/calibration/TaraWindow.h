// The window of the calibration test.
#pragma once

#include "framework/window/TestWindow.h"

class TaraDocument;

class TaraWindow : public TestWindow
{
    Q_OBJECT

public:
    TaraWindow(std::unique_ptr<TestDocument> document, Frame& frame);

private:
    QGroupBox* SizeFrame();
    QGroupBox* DoseFrame();
    QGroupBox* LimitsFrame();
    void EditConcentrations(int col);

    TaraDocument& m_tara; ///< its document
};
