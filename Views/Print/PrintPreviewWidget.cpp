#include "Views/Print/PrintPreviewWidget.h"

#include "Views/Print/PagePrinter.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPrinter>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {
// Room between pages and around them, in page pixels.
constexpr double pageSpacing = 20.0;
// The shadow is this share of the page's size wide.
constexpr double shadowShare = 0.01;
constexpr double wheelZoomStep = 1.25;
constexpr double minimumZoom = 0.05;
constexpr double maximumZoom = 10.0;

void drawShadow(QPainter& painter, const QRectF& rect, const QPointF& from, const QPointF& to)
{
    QLinearGradient gradient(from, to);
    gradient.setColorAt(0.0, QColor(0, 0, 0, 255));
    gradient.setColorAt(1.0, QColor(0, 0, 0, 0));
    painter.fillRect(rect, gradient);
}
} // namespace

PrintPageItem::PrintPageItem(
    const PagePrinter* pagePrinter, int page, const QRectF& paper, const QRectF& content)
    : m_pagePrinter(pagePrinter), m_page(page), m_paper(paper), m_content(content)
{
    setCacheMode(QGraphicsItem::NoCache);
}

QRectF PrintPageItem::boundingRect() const
{
    const double shadowX = m_paper.width() * shadowShare;
    const double shadowY = m_paper.height() * shadowShare;
    return m_paper.adjusted(0, 0, shadowX, shadowY);
}

void PrintPageItem::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const double shadowX = m_paper.width() * shadowShare;
    const double shadowY = m_paper.height() * shadowShare;
    painter->fillRect(m_paper, Qt::white);
    const QRectF right(m_paper.right(), m_paper.top() + shadowY, shadowX, m_paper.height());
    drawShadow(*painter, right, right.topLeft(), right.topRight());
    const QRectF bottom(m_paper.left() + shadowX, m_paper.bottom(), m_paper.width(), shadowY);
    drawShadow(*painter, bottom, bottom.topLeft(), bottom.bottomLeft());
    painter->save();
    painter->setClipRect(m_content);
    painter->translate(m_content.topLeft());
    m_pagePrinter->paintPage(*painter, m_page);
    painter->restore();
}

PrintGraphicsView::PrintGraphicsView(QWidget* parent) : QGraphicsView(parent)
{
    setObjectName(QStringLiteral("printGraphicsView"));
    setBackgroundBrush(QColor(0x9a, 0xa3, 0xad));
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setDragMode(QGraphicsView::ScrollHandDrag);
}

void PrintGraphicsView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    emit sigZoom(event->angleDelta().y() > 0 ? wheelZoomStep : 1.0 / wheelZoomStep);
    event->accept();
}

PrintPreviewWidget::PrintPreviewWidget(QWidget* parent)
    : QWidget(parent), m_view(new PrintGraphicsView(this)), m_scene(new QGraphicsScene(this))
{
    m_view->setScene(m_scene);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    connect(m_view, &PrintGraphicsView::sigZoom, this,
        [this](double factor) { setZoomFactor(zoomFactor() * factor); });
    connect(
        m_view->verticalScrollBar(), &QScrollBar::valueChanged, this, &PrintPreviewWidget::sigPreviewChanged);
}

void PrintPreviewWidget::setPages(const PagePrinter* pagePrinter, const QPrinter& printer)
{
    const int current = currentPage();
    m_scene->clear();
    m_pages.clear();
    const QPageLayout layout = printer.pageLayout();
    const QRectF paper(QPointF(0, 0), QSizeF(layout.fullRectPixels(printer.resolution()).size()));
    const QRectF content = QRectF(layout.paintRectPixels(printer.resolution()));
    const int count = pagePrinter->pageCount();
    double y = pageSpacing;
    for (int page = 0; page < count; ++page) {
        auto* item = new PrintPageItem(pagePrinter, page, paper, content);
        item->setPos(pageSpacing, y);
        m_scene->addItem(item);
        m_pages << item;
        y += paper.height() + pageSpacing;
    }
    m_scene->setSceneRect(0, 0, paper.width() + 2 * pageSpacing, y);
    setCurrentPage(qMin(current, count - 1));
    emit sigPreviewChanged();
}

int PrintPreviewWidget::currentPage() const
{
    if (m_pages.isEmpty())
        return 0;
    const QPointF centre = m_view->mapToScene(m_view->viewport()->rect().center());
    for (int page = 0; page < m_pages.size(); ++page) {
        const PrintPageItem* item = m_pages.at(page);
        if (centre.y() < item->pos().y() + item->boundingRect().height() + pageSpacing / 2)
            return page;
    }
    return m_pages.size() - 1;
}

void PrintPreviewWidget::setCurrentPage(int page)
{
    const PrintPageItem* item = m_pages.value(qMax(page, 0));
    if (!item)
        return;
    // The top of the page at the top of the view.
    const QRectF rect = item->sceneBoundingRect();
    m_view->centerOn(rect.center().x(),
        rect.top() + m_view->mapToScene(m_view->viewport()->rect()).boundingRect().height() / 2
            - pageSpacing / 2);
    emit sigPreviewChanged();
}

double PrintPreviewWidget::zoomFactor() const
{
    return m_view->transform().m11();
}

void PrintPreviewWidget::setZoomFactor(double factor)
{
    const int page = currentPage();
    factor = qBound(minimumZoom, factor, maximumZoom);
    m_view->setTransform(QTransform::fromScale(factor, factor));
    setCurrentPage(page);
}

void PrintPreviewWidget::fitToWidth()
{
    if (m_pages.isEmpty())
        return;
    const double width = m_scene->sceneRect().width();
    setZoomFactor(m_view->viewport()->width() / width);
}

void PrintPreviewWidget::slotFitPage()
{
    const PrintPageItem* item = m_pages.value(currentPage());
    if (!item)
        return;
    const QRectF rect
        = item->sceneBoundingRect().adjusted(-pageSpacing, -pageSpacing, pageSpacing, pageSpacing);
    const QSize viewport = m_view->viewport()->size();
    const int page = currentPage();
    setZoomFactor(qMin(viewport.width() / rect.width(), viewport.height() / rect.height()));
    setCurrentPage(page);
}
