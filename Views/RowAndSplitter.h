#pragma once

#include "korvane_export.h"

#include <QWidget>

class AChanParItem;
class ChannelPlotView;
class Splitter;

// A row of an analogue list with its handle under it; the list sets the row's height.
class KORVANE_EXPORT RowAndSplitter : public QWidget
{
    Q_OBJECT
public:
    RowAndSplitter(QWidget* content, QWidget* parent = nullptr);
    Splitter* splitter() const { return m_splitter; }

private:
    Splitter* m_splitter;
};

// The left side of an analogue row.
class KORVANE_EXPORT AChanParAndSplitter : public RowAndSplitter
{
    Q_OBJECT
public:
    AChanParAndSplitter(AChanParItem* item, QWidget* parent = nullptr);
    AChanParItem* item() const { return m_item; }

private:
    AChanParItem* m_item;
};

// The right side of an analogue row.
class KORVANE_EXPORT AChanPlotAndSplitter : public RowAndSplitter
{
    Q_OBJECT
public:
    AChanPlotAndSplitter(ChannelPlotView* plot, QWidget* parent = nullptr);
    ChannelPlotView* plot() const { return m_plot; }

private:
    ChannelPlotView* m_plot;
};
