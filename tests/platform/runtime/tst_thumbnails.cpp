#include "kthumbnailcache.h"
#include "support/temptree.h"
#include "thumbnailfile.h"
#include "thumbnailstore.h"

#include <mutex>

using namespace zel::platform;

class ThumbnailTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<zeltest::TempTree>();
        qputenv("XDG_CACHE_HOME", m_folder->bytes("cache"));
    }

    void uris()
    {
        QCOMPARE(thumbnailUris("/ !\"#$%&'()*+,-./0:;<=>?@A[\\]^_`a{|}~ü"_s).constFirst(),
            QByteArray("file:///%20!%22%23$%25&'()*+,-./0:%3B%3C=%3E%3F@A%5B%5C%5D%5E_%60a%7B%7C%7D~%C3%BC"));
    }

    void choice_data()
    {
        // there: folders, with the edge of the picture in them
        // edge: of the result; 0: none
        const auto row = zeltest::table<QString, int, int>("there", "pixels", "edge");
        row("scaled down", "normal=128", 48, 48);
        row("never blown up", "normal=60", 128, 60);
        row("smallest that will do", "normal=11 large=12 x-large=13", 200, 12);
        row("smaller as a last resort", "normal=11 large=12", 2000, 12);
        row("nothing wanted", "normal=128", 0, 0);
        row("too large to be a thumbnail", "normal=3000", 128, 0);
    }
    void choice()
    {
        const auto [there, pixels] = zeltest::row<QString, int>();
        const QString path = m_folder->write("a;b [1] 50% ü?#.pdf");
        for (const QString &entry : there.split(QLatin1Char(' '))) {
            const int size = entry.section(QLatin1Char('='), 1).toInt();
            writeThumbnail(
                thumbnailFile(entry.section(QLatin1Char('='), 0, 0), thumbnailUris(path).constFirst()),
                {size, size / 2 + 1}, {}, timeOf(path));
        }
        QTEST(readThumbnail(path, pixels).width(), "edge");
    }

    void bothSpellings()
    {
        const QString path = m_folder->write("a;b.pdf");
        QCOMPARE(thumbnailUris(path).size(), 2);
        for (const QByteArray &uri : thumbnailUris(path)) {
            const QString file = thumbnailFile("normal"_s, uri);
            writeThumbnail(file, {8, 8}, QString::fromLatin1(uri), timeOf(path));
            QCOMPARE(readThumbnail(path, 128).size(), QSize(8, 8));
            QVERIFY(QFile::remove(file));
        }
    }

    void onlyValidOnes_data()
    {
        // uri: $: the right one
        const auto row = zeltest::table<QString, QString, bool>("uri", "time", "valid");
        const QString right(QLatin1Char('$'));
        row("right", right, right, true);
        row("other document", "file:///other", right, false);
        row("outdated", right, "1", false);
        row("time is no number", right, "now", false);
    }
    void onlyValidOnes()
    {
        auto [uri, time] = zeltest::row<QString, QString>();
        const QString path = m_folder->write("a.pdf");
        const QByteArray right = thumbnailUris(path).constFirst();
        uri.replace(QLatin1Char('$'), QString::fromLatin1(right));
        time.replace(QLatin1Char('$'), timeOf(path));
        writeThumbnail(thumbnailFile("normal"_s, right), {8, 8}, uri, time);
        QTEST(!readThumbnail(path, 128).isNull(), "valid");
        QVERIFY(QFile::remove(path));
        QVERIFY(readThumbnail(path, 128).isNull());
    }

    void brokenFiles()
    {
        const QString path = m_folder->write("a.pdf");
        const QString file = thumbnailFile("normal"_s, thumbnailUris(path).constFirst());
        writeThumbnail(file, {100, 100}, {}, timeOf(path), "jpg");
        QVERIFY(readThumbnail(path, 128).isNull()); // another format
        writeThumbnail(file, {100, 100}, {}, timeOf(path));
        QVERIFY(!readThumbnail(path, 128).isNull());
        const qint64 size = QFileInfo(file).size();
        for (qint64 cut = size - 20; cut >= 0; cut -= size / 10 + 1) { // within the picture and before
            QVERIFY(QFile::resize(file, cut));
            readThumbnail(path, 128); // whatever can be shown of it; no crash
        }
        QVERIFY(readThumbnail(path, 128).isNull());
        QVERIFY(QFile::remove(file));
        QCOMPARE(::mkfifo(QFile::encodeName(file).constData(), 0600), 0);
        QVERIFY(readThumbnail(path, 128).isNull()); // and does not wait for a writer
    }

    // Which unfold to gigabytes, would one let them.
    void packedTexts()
    {
        const QString path = m_folder->write("a.pdf");
        const QString file = thumbnailFile("normal"_s, thumbnailUris(path).constFirst());
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        image.setText("Thumb::MTime"_s, timeOf(path));
        for (int n = 0; n < 3; ++n) {
            image.setText(QString::number(n), QString(7000000, QLatin1Char('x')));
            QVERIFY(image.save(file, "png"));
            QCOMPARE(readThumbnail(path, 128).isNull(), n == 2); // the first ones alone are short enough
        }
    }

    void throughTheCache()
    {
        const QString path = m_folder->write("a.pdf");
        const QString file = thumbnailFile("normal"_s, thumbnailUris(path).constFirst());
        writeThumbnail(file, {100, 50}, {}, timeOf(path));
        KThumbnailCache cache;
        QSignalSpy loaded(&cache, &KThumbnailCache::loaded);
        QVERIFY(cache.thumbnail(path, 50).isNull());
        QVERIFY(cache.thumbnail(path, 50).isNull()); // asked for twice, looked for once
        QCOMPARE(loaded.count(), 0);
        QTRY_COMPARE(loaded.count(), 1);
        QCOMPARE(loaded.constFirst().constFirst().toString(), path);
        QCOMPARE(cache.thumbnail(path, 50).size(), QSize(50, 25));
        cache.clear();
        QVERIFY(cache.thumbnail(path, 50).isNull());
        QTRY_COMPARE(loaded.count(), 2);
    }

    void latestFirstAndBounded()
    {
        const auto files = std::make_shared<GatedReader>();
        ThumbnailLimits limits;
        limits.waiting = 3;
        ThumbnailStore store(files->reader(), limits, nullptr);
        QSignalSpy loaded(&store, &ThumbnailStore::loaded);
        const auto ask = [&](const char *names) {
            for (const char *c = names; *c; ++c)
                QVERIFY(store.find(QString(QLatin1Char(*c)), 8).isNull());
        };
        ask("a");
        QTRY_COMPARE(files->seen().size(), 1); // at work
        ask("abcdeb");                         // a is at work, b was dropped for e and comes again for c
        files->gate.release(4);
        QTRY_COMPARE(loaded.count(), 4);
        QCOMPARE(files->seen().join(QString()), "abed"_s);
    }

    void boundedMemory()
    {
        const auto files = std::make_shared<GatedReader>();
        files->gate.release(1000);
        ThumbnailLimits limits;
        limits.bytes = 10 * (32 * 32 * 4 + 256);
        ThumbnailStore store(files->reader(), limits, nullptr);
        QSignalSpy loaded(&store, &ThumbnailStore::loaded);
        for (int n = 0; n < 50; ++n)
            store.find(QString::number(n), 32);
        QTRY_COMPARE(loaded.count(), 50);
        int kept = 0;
        for (int n = 0; n < 50; ++n)
            kept += store.find(QString::number(n), 32).isNull() ? 0 : 1;
        QCOMPARE(kept, 10);
    }

    void looksAgainAfterAWhile()
    {
        const auto files = std::make_shared<GatedReader>();
        files->gate.release(1000);
        ThumbnailLimits limits;
        limits.fresh = std::chrono::milliseconds(200);
        ThumbnailStore store(files->reader(), limits, nullptr);
        QSignalSpy loaded(&store, &ThumbnailStore::loaded);
        store.find("none"_s, 8);
        store.find("a"_s, 8);
        QTRY_COMPARE(loaded.count(), 1);
        QTRY_COMPARE(files->seen().size(), 2);
        // While the answers are fresh nobody is asked; later somebody is, and the picture stays meanwhile.
        QTRY_VERIFY(store.find("none"_s, 8).isNull() && files->seen().size() >= 3);
        QTRY_VERIFY(!store.find("a"_s, 8).isNull() && files->seen().size() >= 4);
        QCOMPARE(loaded.count(), 1); // it is the same picture
    }

    void deadPlaceIsLeftAlone()
    {
        const auto files = std::make_shared<GatedReader>();
        files->slow = "/dead/"_s;
        ThumbnailLimits limits;
        limits.patience = std::chrono::seconds(1); // enough for the others on a slow machine
        ThumbnailStore store(files->reader(), limits, nullptr);
        QSignalSpy loaded(&store, &ThumbnailStore::loaded);
        const QString dead = m_folder->path("dead/a");
        const QString alive = m_folder->path("b");
        store.find(dead, 8);
        store.find(alive, 8);                    // on a new thread, once the first one is given up
        store.find(m_folder->path("dead/c"), 8); // never
        QTRY_COMPARE(loaded.count(), 1);
        store.find(dead, 8);
        store.find(m_folder->path("d"), 8);
        files->gate.release(1); // the late answer is not taken any more
        QTRY_COMPARE(loaded.count(), 2);
        QCOMPARE(files->seen(), QStringList({dead, alive, m_folder->path("d")}));
    }

private:
    static QString thumbnailFile(const QString &folder, const QByteArray &uri)
    {
        const QByteArray hash = QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex();
        return qEnvironmentVariable("XDG_CACHE_HOME") + "/thumbnails/"_s + folder + QLatin1Char('/')
            + QLatin1String(hash) + ".png"_s;
    }
    static void writeThumbnail(const QString &file, const QSize &size, const QString &uri,
        const QString &modified, const char *format = "png")
    {
        QVERIFY(QDir().mkpath(QFileInfo(file).path()));
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        if (!uri.isEmpty())
            image.setText("Thumb::URI"_s, uri);
        if (!modified.isEmpty())
            image.setText("Thumb::MTime"_s, modified);
        QVERIFY(image.save(file, format));
    }
    /// Notes what it is asked for; waits at each that has `slow` in it until it is let go. Threads that
    /// outlive their test keep it.
    struct GatedReader : std::enable_shared_from_this<GatedReader>
    {
        QString slow;
        std::mutex mutex;
        QStringList asked;
        QSemaphore gate;

        ThumbnailStore::Reader reader()
        {
            return [this, self = shared_from_this()](const QString &path, int pixels) {
                {
                    const std::lock_guard lock(mutex);
                    asked.append(path);
                }
                if (path.contains(slow))
                    gate.acquire();
                if (path.contains("none"_s))
                    return QImage();
                QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
                image.fill(Qt::blue);
                return image;
            };
        }
        QStringList seen()
        {
            const std::lock_guard lock(mutex);
            return asked;
        }
    };

    static QString timeOf(const QString &path)
    {
        return QString::number(QFileInfo(path).lastModified().toSecsSinceEpoch());
    }

    std::unique_ptr<zeltest::TempTree> m_folder;
};

QTEST_GUILESS_MAIN(ThumbnailTest)
#include "tst_thumbnails.moc"
