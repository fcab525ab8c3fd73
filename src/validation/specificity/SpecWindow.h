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
    /// What tells the frames of the two groups apart: their field, the names of their controls, their words.
    struct GroupText {
        QLatin1StringView control;
        QString frame;
        QString title;
        QString captionName;
        QString minimumName;
        QString wordName;
        QString word;
        QString sentenceName;
    };

    QWidget* DataPage();
    QGroupBox* GroupFrame(const GroupText& group);
    QGroupBox* ResultFrame();
};
