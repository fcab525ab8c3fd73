// The document of the test of the detection and quantitation limits, key LIMI, files *.LIM.
#pragma once

#include "framework/document/ColumnDocument.h"
#include "validation/limits/LimiCalc.h"

#include <QStringList>

#include <optional>

class LimiDocument final : public ColumnDocument
{
    Q_OBJECT

public:
    explicit LimiDocument(const DocumentContext& context);

    /// Index of OptionRilDet: 0 shows the detection limit, 1 the quantitation limit; nothing after a file
    /// whose flag is neither of the two.
    std::optional<int> Option() const override { return m_option; }
    static QString OptionCaption(int option);
    /// The user chose the other limit: field, caption and conclusions change, nothing is calculated.
    void ChooseOption(int option);

    void ResetLimi() { ResetDocument(); }
    void ResizeLimiGrid() { ResizeGrid(); }
    bool CalcLimi();
    void ReadLimiFromFile(const QString& fileName) { ReadFromFile(fileName); }
    void WriLimiToFile(const QString& fileName) { WriteToFile(fileName); }

    bool ControlVisible(QAnyStringView control) const override;
    std::span<const ResultField> ResultFields() const override;
    QStringList ConclText(bool english) const override;
    std::vector<NamedValue> Values() const override;
    bool Calc() override { return CalcLimi(); }

protected:
    void ResetSizes() override;
    void ResetResults() override;
    void ReadLines(DataFileReader& reader) override;
    void WriteLines(DataFileWriter& writer) const override;

private:
    void SelectOption(std::optional<int> option);
    QString ShownConclusions() const;

    std::optional<int> m_option = 0;
    std::optional<LimiResults> m_results;
    /// Italian detection, Italian quantitation, English detection, English quantitation.
    std::array<QString, 4> m_conclText;
};
