// The window of the specificity test.
#pragma once

#include "framework/window/TestWindow.h"

class SpecDocument;

class SpecWindow : public TestWindow
{
    Q_OBJECT

public:
    SpecWindow(std::unique_ptr<TestDocument> document, Frame& frame);

    void Activated() override;

private:
    /// What tells the frames of the two groups apart: their field, the names of their controls, their words.
    struct GroupText {
        QString frame;
        QString title;
        SizeRow size;
        QString wordName;
        QString word;
        QString sentenceName;
    };

    QGroupBox* GroupFrame(const GroupText& group);
    QGroupBox* ResultFrame();
    VerdictSign::Kind Sign() const;

    const SpecDocument& m_spec; ///< its document
};
