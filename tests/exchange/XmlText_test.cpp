#include "exchange/ExchangeError.h"
#include "exchange/LandXml.h"
#include "exchange/XmlText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

std::string refusal(const std::function<void()>& body)
{
    try {
        body();
    } catch (const ExchangeError& error) {
        return error.what();
    }
    return "";
}

std::string utf16(std::string_view ascii, bool bigEndian)
{
    std::string bytes;
    for (const char c : ascii) bytes += bigEndian ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

}  // namespace

TEST(XmlText, EncodingsByMarkAndByDeclaration)
{
    EXPECT_EQ(XmlAsUtf8("\xEF\xBB\xBF<a/>"), "<a/>");
    EXPECT_EQ(XmlAsUtf8("<a>中</a>"), "<a>中</a>");
    EXPECT_EQ(XmlAsUtf8("<?xml version='1.0' encoding='GBK'?><a>\xD6\xD0</a>"),
              "<?xml version='1.0' encoding='GBK'?><a>中</a>");
    EXPECT_EQ(XmlAsUtf8("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>"),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>é</a>");
    EXPECT_EQ(XmlAsUtf8("\xFF\xFE" + utf16("<a/>", false)), "<a/>");
    EXPECT_EQ(XmlAsUtf8("\xFE\xFF" + utf16("<a/>", true)), "<a/>");
    EXPECT_EQ(XmlAsUtf8(utf16("<?xml?>", false)), "<?xml?>");
    EXPECT_EQ(XmlAsUtf8(std::string("\xFF\xFE\x2D\x4E\x3D\xD8\x00\xDE", 8)), "中😀");
}

TEST(XmlText, AWrongEncodingIsAClearMessage)
{
    EXPECT_THAT(refusal([] { XmlAsUtf8("<a>\n\xD6\xD0</a>"); }), HasSubstr("第2行"));
    EXPECT_THAT(refusal([] { XmlAsUtf8("<?xml version='1.0' encoding='Shift_JIS'?><a/>"); }), HasSubstr("shift_jis"));
    EXPECT_THAT(refusal([] { XmlAsUtf8("\xFF\xFE<"); }), HasSubstr("UTF-16"));
    EXPECT_THAT(refusal([] { XmlAsUtf8(std::string("\xFF\xFE\x00\xDC", 4)); }), HasSubstr("UTF-16"));
    for (const char* bad : {"\xC0\x80", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xE4\xB8", "\x80"})
        EXPECT_THAT(refusal([&] { XmlAsUtf8(std::string("<a>") + bad + "</a>"); }), HasSubstr("UTF-8"));
}

TEST(XmlText, TheInsideOfWhatIsNotReadGoesAndItsTagsStay)
{
    std::string xml = "<L><Surfaces a='>'><P>1 2\n3</P><Surfaces/><Surfaces>x</Surfaces></Surfaces><A/></L>";
    BlankWhatIsNotRead(xml);
    EXPECT_THAT(xml, HasSubstr("<Surfaces a='>'>"));
    EXPECT_THAT(xml, HasSubstr("</Surfaces><A/></L>"));
    EXPECT_EQ(xml.find("<P>"), std::string::npos);
    EXPECT_EQ(xml.find('x'), std::string::npos);
    EXPECT_EQ(std::count(xml.begin(), xml.end(), '\n'), 1);
}

TEST(XmlText, CommentsAndTextsAreNoTags)
{
    for (const std::string text :
         {"<L><!-- <Surfaces> --><A/></L>", "<L><![CDATA[<Surfaces>]]><A/></L>", "<L b='<Surfaces>'><A/></L>"}) {
        std::string xml = text;
        BlankWhatIsNotRead(xml);
        EXPECT_EQ(xml, text);
    }
    std::string prefixed = "<x:L><x:Surfaces><P/></x:Surfaces></x:L>";
    BlankWhatIsNotRead(prefixed);
    EXPECT_EQ(prefixed, "<x:L><x:Surfaces>    </x:Surfaces></x:L>");
    std::string broken = "<L><Surfaces><P/>";  // never closed: nothing to leave out, the parser will say it
    BlankWhatIsNotRead(broken);
    EXPECT_EQ(broken, "<L><Surfaces><P/>");
}

TEST(XmlText, TooManyElementsAreRefusedBeforeTheyAreBuilt)
{
    std::string xml = "<L>";
    for (std::size_t i = 0; i <= kMostXmlElements; ++i) xml += "<a/>";
    EXPECT_THAT(refusal([&] { BlankWhatIsNotRead(xml); }), HasSubstr("太多"));
}

TEST(LandXmlFile, WhatIsNoLandXml)
{
    const auto open = [](const std::string& text) { return refusal([&] { landxml::File::fromBytes(text); }); };
    EXPECT_THAT(open(""), HasSubstr("XML"));
    EXPECT_THAT(open("<a/>"), HasSubstr("不是 LandXML"));
    EXPECT_THAT(open("<LandXML>\n\n<Units>"), HasSubstr("第3行"));
    EXPECT_THAT(open("<LandXML/>"), HasSubstr("Units"));
    EXPECT_THAT(open(std::string("<LandXML\0></LandXML>", 20)), HasSubstr("XML"));
}
