#pragma once

#include <QMainWindow>
#include <QSharedPointer>

class KorvaneSettings;
class OscillogramView;
class QMenu;
class QTabWidget;

// The viewer: one tab per open record, the "Файл" menu, the recent files of the settings, and
// records dropped on the window. The records of the tabs are those of Oscillograms, which the
// merge dialog offers: a closed tab takes its record out, a merged record opens in a new tab.
class MainWindow : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY(MainWindow)
public:
    explicit MainWindow(QSharedPointer<KorvaneSettings> settings, QWidget* parent = nullptr);

    // Starts loading a record; its tab appears when the record is loaded. A failure shows the
    // library's message and changes no tab.
    void openRecord(const QString& path);
    QTabWidget* tabs() const { return m_tabs; }
    OscillogramView* viewAt(int index) const;
    QMenu* recentMenu() const { return m_recentMenu; }
    // Loads started and not yet ended.
    int pendingLoads() const { return m_pendingLoads; }
    // Closes a tab, first asking whether to save a modified record; false when the user keeps it.
    bool closeTab(int index);
    // The file dialog's filter: the suffixes the library opens.
    static QString fileFilter();

signals:
    void recordOpened(OscillogramView* view);
    void openFailed(const QString& path);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void createMenu();
    void slotOpen();
    void slotSettings();
    void updateRecentMenu();
    void updateTabText(OscillogramView* view);
    void addRecordTab(OscillogramView* view, const QString& path);
    // A tab for a view, titled with the name, its tool tip the full name or path.
    void showRecordTab(OscillogramView* view, const QString& title, const QString& toolTip);
    // A merged record, which is in Oscillograms under the name, in a tab of its own.
    void openMergedRecord(const QString& name);
    void loadEnded();

    QSharedPointer<KorvaneSettings> m_settings;
    QTabWidget* m_tabs = nullptr;
    QMenu* m_recentMenu = nullptr;
    int m_pendingLoads = 0;
};
