#pragma once

#include "korvane_export.h"

#include <QWidget>

// The thin handle under a row: dragging it changes the height of the row above it. It reports the
// change and leaves the height itself to whoever keeps the row heights.
class KORVANE_EXPORT Splitter : public QWidget
{
    Q_OBJECT
public:
    static constexpr int handleHeight = 3;

    explicit Splitter(QWidget* parent = nullptr);

    // The row above never gets lower than this.
    void setMinPanelHeight(int height) { m_minPanelHeight = height; }
    int minPanelHeight() const { return m_minPanelHeight; }

signals:
    void moved(int delta);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    // The row's height: the splitter lies in the row it resizes.
    int panelHeight() const;

    int m_minPanelHeight = 0;
    int m_lastY = 0;
    bool m_pressed = false;
};
