#include "Views/RowAndSplitter.h"

#include "Views/AChanParItem.h"
#include "Views/ChannelPlotView.h"
#include "Views/Splitter.h"

#include <QVBoxLayout>

RowAndSplitter::RowAndSplitter(QWidget* content, QWidget* parent)
    : QWidget(parent), m_splitter(new Splitter(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(content, 1);
    layout->addWidget(m_splitter);
}

AChanParAndSplitter::AChanParAndSplitter(AChanParItem* item, QWidget* parent)
    : RowAndSplitter(item, parent), m_item(item)
{
}

AChanPlotAndSplitter::AChanPlotAndSplitter(ChannelPlotView* plot, QWidget* parent)
    : RowAndSplitter(plot, parent), m_plot(plot)
{
}
