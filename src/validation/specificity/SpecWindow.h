// The window of the specificity test.
#pragma once

#include "framework/window/TestWindow.h"
#include "validation/specificity/SpecDocument.h"

class SpecWindow : public TestWindow
{
    Q_OBJECT

public:
    SpecWindow(std::unique_ptr<SpecDocument> document, Frame& frame);

    void Activated() override;

private:
    QWidget* DataPage();
    QGroupBox* GroupFrame(const QString& frameName, const QString& title, const CountField& field,
                          const std::array<QString, 4>& explanation);
    QGroupBox* ResultFrame();
};
