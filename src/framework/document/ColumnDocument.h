// What the documents share whose grid is one column of results, as long as the field nDet says.
#pragma once

#include "framework/document/TestDocument.h"

#include <vector>

class ColumnDocument : public TestDocument
{
    Q_OBJECT

public:
    static constexpr QLatin1StringView kNDet{"nDet"};

    /// nDet's smallest number and default.
    ColumnDocument(QAnyStringView key, const DocumentContext& context, int minimum,
                   const QString& defaultCount);

    std::span<const SizeField> SizeFields() const override { return {&m_nDet, 1}; }
    /// As many rows as nDet says, 0 in the empty ones.
    void ResizeGrid() override;

protected:
    static constexpr int kFieldsInRow = 2;

    Digits DefaultDigits() const override { return {.interi = 3, .decimali = 3}; }
    void ResetSizes() override;
    /// nDet as a number. Fails as CountIn does.
    std::int16_t Count() const { return CountIn(ControlText(kNDet)); }
    /// The numbers that the first nDet cells show. Fails with TypeMismatch for an empty one.
    std::vector<double> Results() const;
    /// The rows of a file, as many as this text says. Fails as CountIn and SetSize do.
    void ReadResults(DataFileReader& reader, const QString& count);

private:
    SizeField m_nDet;
};
