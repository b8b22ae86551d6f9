#include "fileclass.h"
#include "kfileiconprovider.h"
#include "support/temptree.h"

using namespace zel::platform;

class FileIconsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { KFileIconProvider::instance()->initIconItems(QString()); }

    void iconOfName_data()
    {
        const auto add = zeltest::table<QString, QByteArray>("name", "fileClass");
        const auto row = [&](const char *name, const char *fileClass) { add(name, name, fileClass); };
        row("Report.DOCX", "document");
        row("/home/u/with.dots/Bericht ü.odt", "document");
        row("p.JPeG", "picture");
        row("a.tar.gz", "archive");
        row("CMakeLists.txt.in.pdf", "pdf");
        row("/home/u/with.dots/", "folder");
        // Known to the MIME database only.
        row("Makefile", "code");
        row("drawing.pbm", "picture");
        // Known to nobody.
        row("", "unknown");
        row("strange.zz9x", "unknown");
    }
    void iconOfName()
    {
        const auto [name, fileClass] = zeltest::row<QString, QByteArray>();
        const QIcon icon = KFileIconProvider::instance()->icon(name);
        for (const int size : {16, 24, 32, 48})
            QVERIFY(!icon.pixmap(size).isNull());
        QCOMPARE(QColor(mainColor(icon)).name(), QColor(familyColor(fileClass.constData())).name());
    }

    // A set of icons beside the box wins; a set with broken entries does not leave holes.
    void givenIconSet()
    {
        const zeltest::TempTree folder{
            "broken.png=no picture", "icons.ini=[suffix]\nPDF=red.png\nods=broken.png\nodt=absent.png\n"};
        QImage red(32, 32, QImage::Format_ARGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(folder.path("red.png")));

        auto *provider = KFileIconProvider::instance();
        QCOMPARE(mainColor(provider->icon("a.pdf"_s)), familyColor("pdf"));
        QTest::ignoreMessage(QtWarningMsg, "icon set: no picture for suffix odt");
        QCOMPARE(provider->initIconItems(folder.path()), 2);
        QCOMPARE(mainColor(provider->icon("a.pdf"_s)), QColor(Qt::red).rgba());
        QCOMPARE(mainColor(provider->icon("a.ods"_s)), familyColor("sheet"));
        QCOMPARE(mainColor(provider->icon("a.odt"_s)), familyColor("document"));
    }

private:
    // The colour that most of a picture's opaque pixels have.
    static QRgb mainColor(const QIcon &icon)
    {
        const QImage image = icon.pixmap(32).toImage().convertToFormat(QImage::Format_ARGB32);
        QHash<QRgb, int> counts;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) == 255)
                    ++counts[image.pixel(x, y)];
            }
        }
        QRgb best = 0;
        for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
            if (it.value() > counts.value(best))
                best = it.key();
        }
        return best;
    }
    static QRgb familyColor(const char *fileClass)
    {
        return mainColor(QIcon(iconFileOfClass(QLatin1String(fileClass))));
    }
};

QTEST_MAIN(FileIconsTest)
#include "tst_fileicons.moc"
