#include "kliteskin.h"
#include "krt/krt.h"
#include "support/boxmain.h"

class ApplicationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The bundle as built, found behind a resource folder that does not have it; gone after clear().
    void skinBundle()
    {
        QTemporaryDir empty;
        KLitOfficeInfo info;
        info.resourceDirs = QStringList{empty.path(), krt::dirs::office() + "/res/2019zelbox"_s};
        info.skinDescription = info.resourceDirs.constLast() + "/zelbox.kuip"_s;
        KLiteSkin::setOfficeInfo(info);
        KLiteSkin::setDefaultBaseSkinInfo({QString(), QString(), QString()}); // the description completes it
        QCOMPARE(KLiteSkin::defaultBaseSkinInfo().skinName, KLiteSkinInfo().skinName);
        QVERIFY(QFile::exists(":/icons_svg/16x16/zelbox_share.svg"_s));
        QVERIFY(!QIcon(":/icons_svg/nav_recent.svg"_s).pixmap(24).isNull());

        QImageReader icon(":/icons/zelbox.ico"_s);
        QSet<int> sides;
        do {
            const QImage image = icon.read();
            QVERIFY2(!image.isNull(), qPrintable(icon.errorString()));
            sides.insert(image.width());
        } while (icon.jumpToNextImage());
        QCOMPARE(sides, QSet<int>({16, 24, 32, 48, 64, 128}));

        KLiteSkin::setDefaultBaseSkinInfo({}); // again: replaces
        krt::clear();
        QVERIFY(!QFile::exists(":/icons/zelbox.ico"_s));
    }
};

ZELTEST_BOX_MAIN(ApplicationTest)
#include "tst_application.moc"
