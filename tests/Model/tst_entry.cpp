#include "ModalDialogs.h"
#include "Model/EasyLibKorvane.h"
#include "Model/KorvaneFormat.h"
#include "Model/OscillogramLoaderFactory.h"
#include "Model/ProgressDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

class TestEntry : public QObject
{
    Q_OBJECT
private slots:
    void initializeRegistersMetaTypesByName()
    {
        EasyLibKorvane::initialize();
        EasyLibKorvane::initialize();
        for (const char* name : { "QSharedPointer<Oscillogram>", "Oscillogram*", "LoadFailureException",
                 "QSharedPointer<Exception>", "QSharedPointer<Channel>" })
            QVERIFY2(QMetaType::type(name) != QMetaType::UnknownType, name);
    }

    void unknownSuffixesAreRefused_data()
    {
        QTest::addColumn<QString>("filename");
        QTest::newRow("no suffix") << "record";
        QTest::newRow("text file") << "notes.txt";
        QTest::newRow("pdf upper case") << "REPORT.PDF";
    }

    void unknownSuffixesAreRefused()
    {
        QFETCH(QString, filename);
        QVERIFY(!EasyLibKorvane::isWave(filename));
        QVERIFY(OscillogramLoaderFactory::createLoaderForFile(filename) == nullptr);
        QString errorText;
        QVERIFY(EasyLibKorvane::open(filename, errorText).isNull());
        QCOMPARE(errorText, QStringLiteral("Формат файла не поддерживается"));
    }

    void modalOpenOfUnknownSuffixShowsBox()
    {
        SeenBox seen;
        closeNextMessageBox(seen);
        bool called = false;
        QVERIFY(!EasyLibKorvane::open(
            QStringLiteral("notes.txt"), nullptr, [&called](LoaderResult&) { called = true; }));
        QVERIFY(!called);
        QCOMPARE(seen.title, QStringLiteral("Загрузка файла"));
        QCOMPARE(seen.text, QStringLiteral("Формат файла не поддерживается."));
        QCOMPARE(seen.icon, QMessageBox::Critical);
    }

    void progressDialogShowsStageAndFraction()
    {
        ProgressDialog dialog;
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Загрузка"));
        auto* label = dialog.findChild<QLabel*>(QStringLiteral("stageLabel"));
        auto* bar = dialog.findChild<QProgressBar*>(QStringLiteral("progressBar"));
        auto* buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttonBox"));
        QVERIFY(label && bar && buttons);
        QCOMPARE(buttons->buttons().size(), 1);
        QVERIFY(buttons->button(QDialogButtonBox::Cancel));
        dialog.updateProgress(QStringLiteral("Чтение"), 0.4567);
        QCOMPARE(label->text(), QStringLiteral("Чтение"));
        QCOMPARE(bar->value(), 45);
        // 100.0 asks for 10000, beyond the bar's maximum: the bar keeps what it showed.
        dialog.updateProgress(QStringLiteral("Готово"), 100.0);
        QCOMPARE(bar->value(), 45);
        QCOMPARE(label->text(), QStringLiteral("Готово"));
    }

    void progressDialogCancelRejects()
    {
        ProgressDialog dialog;
        bool rejected = false;
        connect(&dialog, &QDialog::rejected, [&rejected] { rejected = true; });
        dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
        QVERIFY(rejected);
    }

    void thousandSeparators_data()
    {
        QTest::addColumn<qulonglong>("value");
        QTest::addColumn<QString>("text");
        QTest::newRow("zero") << 0ULL << "0";
        QTest::newRow("9999") << 9999ULL << "9999";
        QTest::newRow("10000 stays whole") << 10000ULL << "10000";
        QTest::newRow("10001 is grouped") << 10001ULL << "10 001";
        QTest::newRow("a million") << 1000000ULL << "1 000 000";
        QTest::newRow("largest") << 18446744073709551615ULL << "18 446 744 073 709 551 615";
    }

    void thousandSeparators()
    {
        QFETCH(qulonglong, value);
        QFETCH(QString, text);
        QCOMPARE(addThousandSeparators(value), text);
    }

    void humanifyGitVersion_data()
    {
        QTest::addColumn<QString>("raw");
        QTest::addColumn<QString>("shown");
        QTest::newRow("tagged build") << "korvane_v1.4.2_build317"
                                      << "1.4.2 build 317";
        QTest::newRow("prefix only") << "korvane_vmaster"
                                     << "master";
        QTest::newRow("no pattern") << "1.4.2-dirty"
                                    << "1.4.2-dirty";
    }

    void humanifyGitVersion()
    {
        QFETCH(QString, raw);
        QFETCH(QString, shown);
        Korvane::humanifyGitVersion(raw);
        QCOMPARE(raw, shown);
    }
};

QTEST_MAIN(TestEntry)
#include "tst_entry.moc"
