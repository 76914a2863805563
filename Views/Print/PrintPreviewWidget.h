#pragma once

#include "korvane_export.h"

#include <QGraphicsItem>
#include <QGraphicsView>
#include <QWidget>

class PagePrinter;
class QPrinter;

// One page of the preview: the paper in white with a soft shadow, and on it the page as the
// composer draws it inside the margins.
class KORVANE_EXPORT PrintPageItem : public QGraphicsItem
{
public:
    PrintPageItem(const PagePrinter* pagePrinter, int page, const QRectF& paper, const QRectF& content);

    int page() const { return m_page; }
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    const PagePrinter* m_pagePrinter;
    int m_page;
    QRectF m_paper;
    QRectF m_content;
};

// The view of the pages; the wheel with Ctrl zooms, without it scrolls.
class KORVANE_EXPORT PrintGraphicsView : public QGraphicsView
{
    Q_OBJECT
public:
    explicit PrintGraphicsView(QWidget* parent = nullptr);

signals:
    void sigZoom(double factor);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

// The pages in a column, to be zoomed and walked through.
class KORVANE_EXPORT PrintPreviewWidget : public QWidget
{
    Q_OBJECT
public:
    explicit PrintPreviewWidget(QWidget* parent = nullptr);

    // Lays out the composer's pages on the printer's paper anew.
    void setPages(const PagePrinter* pagePrinter, const QPrinter& printer);
    int pageCount() const { return m_pages.size(); }
    // The page at the middle of the view, counted from 0.
    int currentPage() const;
    void setCurrentPage(int page);
    // On-screen pixels per pixel of the page.
    double zoomFactor() const;
    void setZoomFactor(double factor);
    void fitToWidth();
    PrintGraphicsView* graphicsView() const { return m_view; }
    PrintPageItem* pageItem(int page) const { return m_pages.value(page); }

signals:
    void sigPreviewChanged();

public slots:
    // The whole current page in the view.
    void slotFitPage();

private:
    PrintGraphicsView* m_view;
    QGraphicsScene* m_scene;
    QList<PrintPageItem*> m_pages;
};
