#include "CalcLib/IniFile.h"

#include "ComtradeTestSupport.h"

#include <QTemporaryDir>
#include <QTest>

using ComtradeTest::readAll;
using ComtradeTest::writeAll;

class TestIniFile : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;

    std::string path(const char* name) const { return m_dir.filePath(name).toStdString(); }
    IniFile load(const QByteArray& content)
    {
        const std::string file = path("in.ini");
        IniFile ini;
        if (!writeAll(QString::fromStdString(file), content) || !ini.load(file))
            qFatal("could not prepare the ini file");
        return ini;
    }

private slots:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void savesSectionsAndKeysWithCrCrLf()
    {
        IniFile ini;
        ini.setValue("First", "a", "1");
        ini.setValue("First", "b", "two words");
        ini.setSectionComment("First", "head");
        ini.setKeyComment("First", "b", "note");
        ini.setValue("Second", "c", "");
        QVERIFY(ini.save(path("out.ini")));
        const QByteArray expected = "[First] ;head\r\r\n"
                                    "a=1\r\r\n"
                                    "b=two words;note\r\r\n"
                                    "\r\r\n"
                                    "[Second] \r\r\n"
                                    "c=\r\r\n"
                                    "\r\r\n";
        QCOMPARE(readAll(m_dir.filePath("out.ini")), expected);
    }

    void setValueReplacesAndAppends()
    {
        IniFile ini;
        ini.setValue("S", "x", "1");
        ini.setValue("S", "y", "2");
        ini.setValue("s", "X", "3");
        QCOMPARE(ini.value("S", "x"), std::string("3"));
        QCOMPARE(ini.sections().size(), size_t(1));
        QCOMPARE(ini.sections().front().keys.back().name, std::string("y"));
    }

    void savesLineFeedInsideValueAsCrLf()
    {
        IniFile ini;
        ini.setValue("S", "k", "a\nb");
        QVERIFY(ini.save(path("lf.ini")));
        QCOMPARE(readAll(m_dir.filePath("lf.ini")), QByteArray("[S] \r\r\nk=a\r\nb\r\r\n\r\r\n"));
    }

    void saveFailsOnMissingFolder()
    {
        IniFile ini;
        ini.setValue("S", "k", "v");
        QVERIFY(!ini.save(path("no/such/folder/x.ini")));
    }

    void loadFailsOnMissingFile()
    {
        IniFile ini;
        QVERIFY(!ini.load(path("missing.ini")));
        QVERIFY(ini.sections().empty());
    }

    void readsLines_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("found");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("comment");
        QTest::newRow("plain key") << QByteArray("[S]\nk=v\n") << "S"
                                   << "k" << true << "v"
                                   << "";
        QTest::newRow("value with comment") << QByteArray("[S]\nx=1;note\n") << "S"
                                            << "x" << true << "1"
                                            << "note";
        QTest::newRow("key beginning with zero is dropped") << QByteArray("[S]\n0x=1\n") << "S"
                                                            << "0x" << false << ""
                                                            << "";
        QTest::newRow("zero after blanks is dropped too") << QByteArray("[S]\n \t0y=2\n") << "S"
                                                          << "0y" << false << ""
                                                          << "";
        QTest::newRow("CR LF line ends") << QByteArray("[S]\r\nk=v\r\n") << "S"
                                         << "k" << true << "v"
                                         << "";
        QTest::newRow("CR CR LF line ends") << QByteArray("[S] \r\r\nk=v\r\r\n\r\r\n") << "S"
                                            << "k" << true << "v"
                                            << "";
        QTest::newRow("no final line end") << QByteArray("[S]\nk=v") << "S"
                                           << "k" << true << "v"
                                           << "";
        QTest::newRow("control bytes are white space")
            << QByteArray("[S]\n\x01\t key \x1f= va lue \x02;\x03 c \n") << "S"
            << "key" << true << "va lue"
            << "c";
        QTest::newRow("case of names is ignored") << QByteArray("[Sec]\nKey=v\n") << "sEC"
                                                  << "kEY" << true << "v"
                                                  << "";
        QTest::newRow("line without equals is dropped") << QByteArray("[S]\nk v\n") << "S"
                                                        << "k v" << false << ""
                                                        << "";
        QTest::newRow("empty key name is dropped") << QByteArray("[S]\n =5\n") << "S"
                                                   << "" << false << ""
                                                   << "";
        QTest::newRow("value runs to the first equals only") << QByteArray("[S]\na=b=c\n") << "S"
                                                             << "a" << true << "b=c"
                                                             << "";
        QTest::newRow("first key wins") << QByteArray("[S]\nk=1\nK=2\n") << "S"
                                        << "k" << true << "1"
                                        << "";
        QTest::newRow("repeated section opens nothing") << QByteArray("[A]\nk=1\n[B]\n[a]\nk=2\nm=3\n") << "A"
                                                        << "m" << false << ""
                                                        << "";
        QTest::newRow("keys after a repeated section wait for a new one")
            << QByteArray("[A]\n[A]\nm=3\n[C]\nn=4\n") << "C"
            << "n" << true << "4"
            << "";
        QTest::newRow("section line without bracket is dropped") << QByteArray("[A]\n[B\nk=1\n") << "A"
                                                                 << "k" << true << "1"
                                                                 << "";
        QTest::newRow("key before any section is dropped") << QByteArray("k=1\n[A]\n") << "A"
                                                           << "k" << false << ""
                                                           << "";
        QTest::newRow("empty value") << QByteArray("[S]\nk=\n") << "S"
                                     << "k" << true << ""
                                     << "";
    }

    void readsLines()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(bool, found);
        QFETCH(QString, value);
        QFETCH(QString, comment);
        const IniFile ini = load(content);
        QCOMPARE(ini.hasKey(section.toStdString(), key.toStdString()), found);
        QCOMPARE(QString::fromStdString(ini.value(section.toStdString(), key.toStdString(), "-")),
            found ? value : QString("-"));
        QCOMPARE(QString::fromStdString(ini.keyComment(section.toStdString(), key.toStdString())), comment);
    }

    void sectionCommentFollowsTheBracket()
    {
        const IniFile ini = load("[Name] junk ;the comment \n");
        QVERIFY(ini.hasSection("Name"));
        QCOMPARE(ini.sectionComment("Name"), std::string("the comment"));
    }

    void longLineArrivesInPiecesOf4095Bytes()
    {
        // The first piece holds "k=" and 4093 letters; the rest of the line is a line of its own.
        const QByteArray content = "[S]\nk=" + QByteArray(4093, 'a') + "x=2\n";
        const IniFile ini = load(content);
        QCOMPARE(ini.value("S", "k"), std::string(4093, 'a'));
        QCOMPARE(ini.value("S", "x"), std::string("2"));
    }

    void megabyteLineIsReadWithoutTrouble()
    {
        const QByteArray content = "[S]\nk=" + QByteArray(3 * 1024 * 1024, 'b') + "\nz=1\n";
        const IniFile ini = load(content);
        QCOMPARE(ini.value("S", "k").size(), size_t(4093));
        QCOMPARE(ini.value("S", "z"), std::string("1"));
    }

    void commentsBecomeNamelessEntriesAndAreSavedBack()
    {
        IniFile ini = load("; top\n[S]\n; inner \nk=v\n");
        QCOMPARE(ini.sections().size(), size_t(2));
        QVERIFY(ini.sections().front().name.empty());
        QCOMPARE(ini.sections().front().comment, std::string("top"));
        QVERIFY(!ini.hasKey("S", ""));
        QCOMPARE(ini.value("S", "k"), std::string("v"));
        QVERIFY(ini.save(path("comments.ini")));
        QCOMPARE(readAll(m_dir.filePath("comments.ini")),
            QByteArray(";top\r\r\n[S] \r\r\n;inner\r\r\nk=v\r\r\n\r\r\n"));
    }

    void savedFileReadsBack()
    {
        IniFile ini;
        ini.setValue("One", "a", "1");
        ini.setValue("Two", "b", "x y");
        ini.setKeyComment("Two", "b", "c");
        QVERIFY(ini.save(path("back.ini")));
        IniFile again;
        QVERIFY(again.load(path("back.ini")));
        QCOMPARE(again.value("One", "a"), std::string("1"));
        QCOMPARE(again.value("Two", "b"), std::string("x y"));
        QCOMPARE(again.keyComment("Two", "b"), std::string("c"));
    }

    void valueWithSemicolonIsCutOnReading()
    {
        IniFile ini;
        ini.setValue("S", "k", "a;b");
        QVERIFY(ini.save(path("semi.ini")));
        IniFile again;
        QVERIFY(again.load(path("semi.ini")));
        QCOMPARE(again.value("S", "k"), std::string("a"));
        QCOMPARE(again.keyComment("S", "k"), std::string("b"));
    }
};

QTEST_GUILESS_MAIN(TestIniFile)
#include "tst_inifile.moc"
