#pragma once

#include "korvane_export.h"

#include <QImage>
#include <QSharedPointer>
#include <QWidget>

// Whatever makes the picture of an ImageView, asked anew at each paint.
class KORVANE_EXPORT ImageSource
{
public:
    virtual ~ImageSource();
    virtual QImage image() const = 0;
};

// A widget that shows the picture of its source at its top left corner. Nothing is cached: the
// source renders at every paint.
class KORVANE_EXPORT ImageView : public QWidget
{
    Q_OBJECT
public:
    explicit ImageView(QWidget* parent = nullptr);

    void setImageSource(const QSharedPointer<ImageSource>& source) { m_source = source; }
    QSharedPointer<ImageSource> imageSource() const { return m_source; }

signals:
    void sizeChanged(const QSize& size);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QSharedPointer<ImageSource> m_source;
};
