// The logo as it will stand on a report, in its true size, between rulers.
#pragma once

#include <QImage>
#include <QWidget>

class LogoView : public QWidget
{
    Q_OBJECT

public:
    explicit LogoView(QWidget* parent = nullptr);

    /// maxHeight, maxWidth in twips. Each side of the picture is kept within its limit by itself.
    void SetLimits(int maxHeight, int maxWidth);
    void ShowPicture(const QImage& picture);
    void Clear();
    bool HasPicture() const { return !m_picture.isNull(); }
    /// True fits the whole picture into its limited size, false cuts it there.
    void SetStretch(bool stretch);
    /// The size that the picture has on the report, in twips.
    QSize ShownSize() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void ShownSizeChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect Field() const;
    void PaintRulers(QPainter& painter) const;
    void Describe();

    QImage m_picture;
    QSize m_limits;
    bool m_stretch = true;
};
