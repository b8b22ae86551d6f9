#include "kfiletrash.h"
#include "support/temptree.h"
#include "trashqueue.h"

using Outcome = KFileTrash::Outcome;
using zel::platform::TrashQueue;
using zel::trash::Result;

class FileTrashTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Outcome>(); }

    void requestsInTheirOrder()
    {
        const zeltest::TempTree folder;
        const QString path = folder.write("letter.txt");
        KFileTrash *trash = KFileTrash::instance();
        QSignalSpy trashed(trash, &KFileTrash::trashed);
        QSignalSpy restored(trash, &KFileTrash::restored);
        trash->trash(path);
        trash->trash(path); // by then it is gone
        trash->trash("/"_s);
        QCOMPARE(trashed.count(), 0); // never from inside the call
        QTRY_COMPARE(trashed.count(), 3);
        const auto outcome = [](const QList<QVariant> &arguments) {
            return arguments.at(2).value<Outcome>();
        };
        QCOMPARE(outcome(trashed.at(0)), Outcome::Done);
        QCOMPARE(outcome(trashed.at(1)), Outcome::Missing);
        QCOMPARE(outcome(trashed.at(2)), Outcome::Denied);
        QCOMPARE(trashed.at(1).at(1).toString(), QString());
        const QString id = trashed.at(0).at(1).toString();

        trash->restore(id);
        trash->restore("/etc/passwd"_s);
        QTRY_COMPARE(restored.count(), 2);
        QCOMPARE(restored.at(0).at(1).toString(), path);
        QCOMPARE(outcome(restored.at(0)), Outcome::Done);
        QCOMPARE(outcome(restored.at(1)), Outcome::Denied);
        QVERIFY(QFile::exists(path));
    }

    void whatWaitsIsDoneAtTheEnd()
    {
        const zeltest::TempTree folder;
        QStringList paths;
        auto trash = std::make_unique<KFileTrash>();
        for (int n = 0; n < 5; ++n) {
            paths.append(folder.write(QString::number(n)));
            trash->trash(paths.constLast());
        }
        trash.reset();
        for (const QString &path : std::as_const(paths))
            QVERIFY(!QFile::exists(path));
    }

    // Each dead one is answered, and does not hold up the ones behind it for ever.
    void deadFileSystem()
    {
        const auto gate = std::make_shared<QSemaphore>();
        const auto back = std::make_shared<QSemaphore>();
        TrashQueue queue(nullptr, std::chrono::milliseconds(50));
        QString answers;
        const auto note = [&](const Result &result) {
            answers += QLatin1Char(result.outcome == zel::trash::Outcome::Done ? 'd' : 'f');
        };
        const auto hangs = [gate, back] {
            gate->acquire();
            back->release();
            return ended(zel::trash::Outcome::Done);
        };
        const auto works = [] { return ended(zel::trash::Outcome::Done); };
        const auto answered = [&](const TrashQueue::Work &work) {
            const auto mine = std::make_shared<bool>(false);
            queue.add(work, [=](const Result &result) {
                note(result);
                *mine = true;
            });
            return QTest::qWaitFor([mine] { return *mine; }, 20000);
        };
        const auto goesOn = [&] { // on a slow machine one may be late by itself
            answers.clear();
            while (!answers.endsWith(QLatin1Char('d')))
                if (!answered(works))
                    return false;
            return true;
        };
        queue.add(hangs, note);
        QVERIFY(answered(works));
        QVERIFY(answers.startsWith(QLatin1Char('f')));
        QVERIFY(goesOn());
        answers.clear();
        for (int n = 0; n < 3; ++n)
            queue.add(hangs, note);
        QVERIFY(answered(works)); // with so many that hang, nothing is begun
        QCOMPARE(answers, "ffff"_s);
        gate->release(4);
        QVERIFY(back->tryAcquire(4, 20000));
        // They have come back, so it goes on; what they say now is not told.
        QVERIFY(goesOn());
        QCOMPARE(answers.count(QLatin1Char('d')), 1);
    }

    void mayEndInItsAnswer()
    {
        auto queue = std::make_unique<TrashQueue>(nullptr);
        bool answered = false;
        queue->add([] { return ended(zel::trash::Outcome::Done); },
            [&](const Result &) {
                answered = true;
                queue.reset();
            });
        QTRY_VERIFY(answered);
    }

    void endDoesNotHang()
    {
        const auto gate = std::make_shared<QSemaphore>();
        const auto back = std::make_shared<QSemaphore>();
        auto queue = std::make_unique<TrashQueue>(nullptr);
        queue->add(
            [gate, back] {
                gate->acquire();
                back->release();
                return ended(zel::trash::Outcome::Done);
            },
            [](const Result &) { QFAIL("it was gone by then"); });
        QElapsedTimer time;
        time.start();
        queue.reset();
        QVERIFY(time.elapsed() < 5000);
        gate->release();
        QVERIFY(back->tryAcquire(1, 5000));
    }

private:
    static Result ended(zel::trash::Outcome outcome)
    {
        Result result;
        result.outcome = outcome;
        return result;
    }
};

QTEST_GUILESS_MAIN(FileTrashTest)
#include "tst_filetrash.moc"
