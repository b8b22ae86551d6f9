#include "base/posix/unicode.h"
#include "launcher/commandline.h"
#include "launcher/frame.h"

using namespace zel::launcher;
using namespace zel::posix;

Q_DECLARE_METATYPE(std::string)
Q_DECLARE_METATYPE(std::u32string)
Q_DECLARE_METATYPE(std::vector<std::string>)
Q_DECLARE_METATYPE(FrameReader::State)

class TestText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void conversion_data()
    {
        const auto row = zeltest::table<std::string, std::u32string>("bytes", "text");
        row("every length", "a\xC3\xA9\xE6\x96\x87\xF0\x9F\x93\x84", U"a\u00E9\u6587\U0001F4C4");
        row("ends of the ranges",
            "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80"
            "\xF4\x8F\xBF\xBF",
            U"\u007F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF");
        row("overlong slash", "\xC0\xAF", U"\uFFFD\uFFFD");
        row("overlong three bytes", "\xE0\x80\xAF", U"\uFFFD\uFFFD\uFFFD");
        row("surrogate", "\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD");
        row("past the last plane", "\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD");
        row("cut off before a letter", "\xE6\x96z", U"\uFFFDz");
        row("cut off before a lead", "\xE6\x96\xC3\xA9", U"\uFFFD\u00E9");
    }

    void conversion()
    {
        const auto [bytes, text] = zeltest::row<std::string, std::u32string>();
        QCOMPARE(decodeUtf8(bytes), text);
        QCOMPARE(decodeUtf8(encodeUtf8(text)), text);
        const std::u16string units = toUtf16(text);
        QCOMPARE(fromUtf16(units), text);
        // Qt's own converters as the second opinion.
        QCOMPARE(QString::fromUcs4(text.data(), int(text.size())), QString::fromStdU16String(units));
        QCOMPARE(QString::fromStdWString(toWide(text)), QString::fromStdU16String(units));
        QCOMPARE(encodeUtf8(text), QString::fromStdU16String(units).toUtf8().toStdString());
    }

    void loneSurrogates()
    {
        const std::u16string units = {u'a', 0xD83D, u'b', 0xDCC4, 0xDCC4, 0xD83D};
        QVERIFY(fromUtf16(units) == U"a\uFFFDb\uFFFD\uFFFD\uFFFD");
        QVERIFY(toUtf16(std::u32string{0xD800, 0x110000}) == u"\uFFFD\uFFFD");
    }

    void commandLine_data()
    {
        // read: what the box makes of the text
        const auto add = zeltest::table<Words, std::string, Words>("arguments", "text", "read");
        const auto row = [&](const char *name, const Words &arguments, const char *text) {
            add(name, arguments, text, arguments);
        };
        row("several", {"/radarid=3", "/action=notifybackup", "rest"},
            "/radarid=3 /action=notifybackup rest");
        row("blank in a value", {"/param=/home/me/my file"}, "\"/param=/home/me/my file\"");
        row("blanks at the ends", {" a", "b ", " "}, "\" a\" \"b \" \" \"");
        row("empty argument", {"", "x", ""}, "\"\" x \"\"");
        row("tab and line break stay", {"a\tb", "c\nd"}, "a\tb c\nd");
        add("none", {}, "", {""});
        add("quotes are lost", {"say \"hi\" now", "\"a\"", "\""}, "\"say hi now\" a \"\"",
            {"say hi now", "a", ""});
    }

    void commandLine()
    {
        const auto [arguments, text, read] = zeltest::row<Words, std::string, Words>();
        const CommandLine line = joinArguments({arguments.begin(), arguments.end()});
        QCOMPARE(line.text, text);
        QCOMPARE(readAsBox(line.text), read);
        QCOMPARE(line.quotesDropped, !arguments.empty() && arguments != read);
    }

    void frameInPieces()
    {
        const Message message{u"_TRANSMISSION_", u"zelbox_active_window?=/id=\u6587\xD83D\xDCC4"};
        const std::string frame = encodeFrame(message).value();
        for (std::size_t piece = 1; piece <= frame.size(); ++piece) {
            FrameReader reader;
            auto state = FrameReader::State::Incomplete;
            for (std::size_t at = 0; at < frame.size(); at += piece) {
                QCOMPARE(state, FrameReader::State::Incomplete);
                state = reader.feed(std::string_view(frame).substr(at, piece));
            }
            QCOMPARE(state, FrameReader::State::Complete);
            QVERIFY(reader.message() == message);
        }
        const std::size_t most = (maxFrameBytes - sizeof(FrameHeader)) / sizeof(char16_t);
        QVERIFY(encodeFrame({u"", std::u16string(most, u'x')}));
        QVERIFY(!encodeFrame({u"", std::u16string(most + 1, u'x')}));
    }

    void brokenFrames_data()
    {
        const auto row = zeltest::table<std::string, FrameReader::State>("bytes", "state");
        using State = FrameReader::State;
        const std::uint32_t most = (maxFrameBytes - sizeof(FrameHeader)) / sizeof(char16_t);
        row("wrong first byte", std::string("z"), State::Broken);
        row("later version", frameWith("ZELM", 2, 0, 0), State::Broken);
        row("largest", frameWith("ZELM", 1, 0, most), State::Incomplete);
        row("too large by one", frameWith("ZELM", 1, 1, most), State::Broken);
        row("bytes behind the frame", frameWith("ZELM", 1, 0, 1) + "abc", State::Broken);
    }

    void brokenFrames()
    {
        QFETCH(std::string, bytes);
        FrameReader reader;
        QTEST(reader.feed(bytes), "state");
        if (reader.feed("") == FrameReader::State::Broken)
            QCOMPARE(reader.feed(encodeFrame({}).value()), FrameReader::State::Broken);
    }

private:
    using Words = std::vector<std::string>;
    // The box's rule: split at blanks keeping empty pieces, join again inside double quotes, remove the
    // quotes.
    static Words readAsBox(const std::string &line)
    {
        Words pieces(1);
        bool quoted = false;
        for (const char c : line) {
            if (c == '"')
                quoted = !quoted;
            else if (c == ' ' && !quoted)
                pieces.emplace_back();
            else
                pieces.back() += c;
        }
        return pieces;
    }
    static std::string frameWith(
        const char *magic, std::uint16_t version, std::uint16_t channelUnits, std::uint32_t textUnits)
    {
        FrameHeader header = {};
        memcpy(header.magic, magic, sizeof(header.magic));
        header.version = version;
        header.channelUnits = channelUnits;
        header.textUnits = textUnits;
        return {reinterpret_cast<const char *>(&header), sizeof(header)};
    }
};

QTEST_APPLESS_MAIN(TestText)
#include "tst_text.moc"
