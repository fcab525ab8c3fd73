// The window of the test of the detection and quantitation limits.
#pragma once

#include "framework/window/TestWindow.h"
#include "validation/limits/LimiDocument.h"

#include <QRadioButton>

#include <array>

class LimiWindow : public TestWindow
{
    Q_OBJECT

public:
    LimiWindow(std::unique_ptr<LimiDocument> document, Frame& frame);

protected:
    void Refresh() override;

private:
    QWidget* DataPage();
    QGroupBox* ResultFrame();

    LimiDocument& m_document;
    std::array<QRadioButton*, 2> m_options{};
};
