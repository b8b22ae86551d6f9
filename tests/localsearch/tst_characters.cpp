#include "base/posix/unicode.h"
#include "localsearch/engine/fold.h"
#include "localsearch/engine/pinyin.h"

using namespace zel::localsearch;
using namespace zeltest;

/// What a character is compared as, and how it is read.
class CharactersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readings_data();
    void readings();
    void folds_data();
    void folds();
    void foldedStaysFolded();
    void originals_data();
    void originals();
};

void CharactersTest::readings_data()
{
    // The rare ones stand after a bar.
    const auto row = table<QString, QString>("character", "readings");
    row("two common ones, the frequent one first", "行", "xing hang | heng");
    row("another", "乐", "le yue");
    row("traditional", "樂", "le yue | yao luo liao");
    row("third reading of a dictionary", "重", "zhong chong | tong");
    row("seldom, yet common", "会", "hui kuai");
    row("frequent one first, not the first letter", "都", "dou du");
    row("v", "女", "nv | ru");
    row("v before e", "略", "lve");
    row("one", "银", "yin");
    row("no vowel", "嗯", "n ng");
    row("rarest plane", "𠀀", "he");
    row("a letter", "a", "");
    row("kana", "か", "");
    row("none known", "\u4DFF", "");
}

void CharactersTest::readings()
{
    const auto [character, expected] = row<QString, QString>();
    QStringList words;
    bool wasCommon = true;
    for (const Reading reading : readingsOf(char32_t(character.toUcs4().constFirst()))) {
        if (wasCommon && !reading.isCommon)
            words += "|"_s;
        wasCommon = reading.isCommon;
        words += QString::fromStdString(std::string(reading.letters()));
    }
    QCOMPARE(words.join(" "_s), expected);
}

void CharactersTest::folds_data()
{
    const auto row = table<QString, QString>("text", "folded");
    row("case", "ABC ÀÉ Ж Σς", "abc ae ж σσ");
    row("width", "Ｑ３　ﾎﾟｽﾀｰ（１）", "q3 ポスター(1)");
    row("accents, composed and apart", "Čapek Re\u0301sume\u0301", "capek resume");
    row("strokes and pairs", "Łódź Ørsted Æon Straße œuvre đ ıŞ", "lodz orsted aeon strasse oeuvre d is");
    row("compatibility", "ﬁle №5 … ⑤", "file no5 ... 5");
    row("not to be seen", "a\u00ADb\u200Dc\uFE0F", "abc");
    row("Chinese stays, its doubles are joined", "银行 豈 ⼀", "银行 豈 一");
    row("voicing is no accent", "か\u3099は\u309Aガ", "がぱガ");
    row("Hangul is put together", "\u1112\u1161\u11AB글", "한글");
    row("vowels and tones of other scripts stay", "น้ำ हिन्दी", "น้\u0E4Dา हिन्दी");
}

void CharactersTest::folds()
{
    const auto [text, expected] = row<QString, QString>();
    QCOMPARE(QString::fromStdString(folded(text.toStdString())), expected);
}

void CharactersTest::foldedStaysFolded()
{
    for (char32_t c = 1; c <= 0x10FFFF; ++c) {
        std::string text;
        zel::posix::appendUtf8(text, c);
        const std::string once = folded(text);
        QVERIFY2(folded(once) == once, qPrintable(QString::number(c, 16)));
    }
}

void CharactersTest::originals_data()
{
    // Each part of the folded text gives back what is in brackets.
    const auto row = table<QByteArray, QByteArray, QByteArray>("text", "part", "original");
    row("plain", "report", "port", "port");
    row("accent apart", "Re\u0301sume\u0301", "e", "e\u0301");
    row("last accent too", "Re\u0301sume\u0301", "sume", "sume\u0301");
    row("half of a pair is all of it", "Straße", "as", "aß");
    row("end of a pair", "Straße", "se", "ße");
    row("three bytes", "Ａ银行", "银", "银");
    row("joined", "xか\u3099y", "が", "か\u3099");
    row("behind broken bytes", "\xE9\x93\xFFHallo\xC3", "hallo", "Hallo");
    row("broken bytes",
        "a\xFF"
        "b",
        "\uFFFD", "\xFF");
}

void CharactersTest::originals()
{
    const auto [text, part, original] = row<QByteArray, QByteArray, QByteArray>();
    const FoldedText folded(text.toStdString());
    const auto begin = folded.text().find(part.toStdString());
    QVERIFY(begin != std::string::npos);
    const Range range = folded.originalOf({uint32_t(begin), uint32_t(begin) + uint32_t(part.size())});
    QCOMPARE(text.mid(int(range.begin), int(range.end - range.begin)), original);
}

QTEST_GUILESS_MAIN(CharactersTest)
#include "tst_characters.moc"
