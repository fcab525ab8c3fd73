// The world around a document in a benchmark: nobody answers.
#pragma once

#include "framework/document/CommonDialog.h"
#include "framework/document/Define.h"
#include "framework/document/Messages.h"
#include "stats/CriticalValues.h"

class Nobody : public CommonDialog, public Messages, public FTable
{
public:
    bool ShowOpen() override { return false; }
    bool ShowSave() override { return false; }
    QString BrowseFolder(const QString&, const QString&) override { return {}; }
    void Show(MessageIcon, const QString&, const QString&) override {}
    Answer Ask(MessageIcon, const QString&, const QString&) override { return Answer::Cancel; }
    std::optional<double> Find(std::int16_t, std::int16_t) override { return std::nullopt; }
};
