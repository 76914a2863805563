#include "MainWindow.h"

#include "Loaders/ComtradeLoader.h"
#include "Model/EasyLibKorvane.h"
#include "Model/OscillogramLoader.h"
#include "Model/Oscillograms.h"
#include "Model/ProgressDialog.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsDialog.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QTabWidget>
#include <QUndoStack>

MainWindow::MainWindow(QSharedPointer<KorvaneSettings> settings, QWidget* parent)
    : QMainWindow(parent), m_settings(std::move(settings)), m_tabs(new QTabWidget(this))
{
    setWindowTitle(tr("Korvane"));
    setAcceptDrops(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setDocumentMode(true);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
    setCentralWidget(m_tabs);
    createMenu();
    resize(1280, 800);
}

QString MainWindow::fileFilter()
{
    return tr("Осциллограммы (*.cfg *.zip *.wv2 *.clc);;Все файлы (*)");
}

void MainWindow::createMenu()
{
    QMenu* file = menuBar()->addMenu(tr("Файл"));
    QAction* open = file->addAction(tr("Открыть..."), this, &MainWindow::slotOpen);
    open->setShortcut(QKeySequence::Open);
    m_recentMenu = file->addMenu(tr("Последние файлы"));
    QAction* close = file->addAction(tr("Закрыть вкладку"), this, [this]() {
        if (m_tabs->currentIndex() >= 0)
            closeTab(m_tabs->currentIndex());
    });
    close->setShortcut(QKeySequence::Close);
    file->addAction(tr("Настройки..."), this, &MainWindow::slotSettings);
    file->addSeparator();
    QAction* quit = file->addAction(tr("Выход"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);
    updateRecentMenu();
}

void MainWindow::updateRecentMenu()
{
    m_recentMenu->clear();
    for (const QString& path : m_settings->lastOpenFiles())
        m_recentMenu->addAction(path, this, [this, path]() { openRecord(path); });
    m_recentMenu->setEnabled(!m_recentMenu->isEmpty());
}

void MainWindow::slotOpen()
{
    const QStringList paths
        = QFileDialog::getOpenFileNames(this, tr("Открыть осциллограмму"), QString(), fileFilter());
    for (const QString& path : paths)
        openRecord(path);
}

void MainWindow::slotSettings()
{
    SettingsDialog dialog(m_settings, this);
    if (dialog.exec() == QDialog::Accepted)
        ComtradeLoader::setDefaultCompatible(m_settings->isCompatibleLoading());
}

OscillogramView* MainWindow::viewAt(int index) const
{
    return qobject_cast<OscillogramView*>(m_tabs->widget(index));
}

void MainWindow::openRecord(const QString& path)
{
    // The view waits outside the tabs until its record is there, so a failure touches no tab.
    auto* view = new OscillogramView(m_settings, this);
    view->hide();
    OscillogramLoader* loader = EasyLibKorvane::open(path, this, view);
    if (!loader) {
        delete view;
        emit openFailed(path);
        return;
    }
    ++m_pendingLoads;
    auto* dialog = new ProgressDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(
        loader, &TaskBase::progressChanged, dialog, &ProgressDialog::updateProgress, Qt::QueuedConnection);
    connect(dialog, &QDialog::rejected, loader, &TaskBase::cancel, Qt::QueuedConnection);
    // Connected after the library's own handlers, so the view already holds the record here.
    connect(
        loader, &TaskBase::completed, this,
        [this, view, path, dialog]() {
            dialog->close();
            addRecordTab(view, path);
            loadEnded();
            emit recordOpened(view);
        },
        Qt::QueuedConnection);
    connect(loader, &TaskBase::error, this, [this, view, path, dialog]() {
        dialog->close();
        view->deleteLater();
        loadEnded();
        emit openFailed(path);
    });
    dialog->open();
}

void MainWindow::loadEnded()
{
    --m_pendingLoads;
}

void MainWindow::addRecordTab(OscillogramView* view, const QString& path)
{
    showRecordTab(view, QFileInfo(path).fileName(), QFileInfo(path).absoluteFilePath());
    m_settings->addLastOpenFile(QFileInfo(path).absoluteFilePath());
    m_settings->saveOpenFiles();
    updateRecentMenu();
}

void MainWindow::showRecordTab(OscillogramView* view, const QString& title, const QString& toolTip)
{
    view->showToolbar();
    const int index = m_tabs->addTab(view, title);
    m_tabs->setTabToolTip(index, toolTip);
    m_tabs->setCurrentIndex(index);
    connect(view->undoStack(), &QUndoStack::cleanChanged, this, [this, view]() { updateTabText(view); });
    connect(view, &OscillogramView::sigOscillogramMerged, this, &MainWindow::openMergedRecord);
}

void MainWindow::openMergedRecord(const QString& name)
{
    const QSharedPointer<Oscillogram> record = Oscillograms::instance()->get(name);
    if (!record)
        return;
    auto* view = new OscillogramView(m_settings, this);
    view->setOscillogram(record);
    view->initByDefault();
    // The merged record exists in memory only until it is saved.
    view->setIsModified(true);
    showRecordTab(view, name, name);
    updateTabText(view);
    emit recordOpened(view);
}

void MainWindow::updateTabText(OscillogramView* view)
{
    const int index = m_tabs->indexOf(view);
    if (index < 0)
        return;
    const QString name = QFileInfo(m_tabs->tabToolTip(index)).fileName();
    m_tabs->setTabText(index, view->isModified() ? name + QStringLiteral(" *") : name);
}

bool MainWindow::closeTab(int index)
{
    OscillogramView* view = viewAt(index);
    if (!view)
        return false;
    if (view->isModified()) {
        const auto answer = QMessageBox::question(this, tr("Закрытие осциллограммы"),
            tr("Осциллограмма %1 изменена. Сохранить изменения?").arg(view->oscillogramViewName()),
            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
        if (answer == QMessageBox::Cancel)
            return false;
        if (answer == QMessageBox::Save) {
            view->slotSaveOscillogram();
            if (view->isModified())
                return false;
        }
    }
    m_tabs->removeTab(index);
    // The record is open no more, so the merge dialog no longer offers it.
    if (const auto record = view->oscillogramViewModel()->oscillogram())
        Oscillograms::instance()->remove(record);
    view->deleteLater();
    return true;
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    bool opened = false;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (!url.isLocalFile())
            continue;
        openRecord(url.toLocalFile());
        opened = true;
    }
    if (opened)
        event->acceptProposedAction();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    while (m_tabs->count() > 0) {
        if (!closeTab(m_tabs->count() - 1)) {
            event->ignore();
            return;
        }
    }
    event->accept();
}
