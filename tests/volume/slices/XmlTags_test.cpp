// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#include "volume/slices/XmlTags.h"

#include <gtest/gtest.h>

namespace {

using tamo::volume::XmlTag;
using tamo::volume::XmlTags;

XmlTag onlyTag(std::string const& text) {
    XmlTags tags(text);
    XmlTag tag;
    EXPECT_TRUE(tags.next(tag)) << text;
    XmlTag none;
    EXPECT_FALSE(tags.next(none)) << text;
    EXPECT_FALSE(tags.isDamaged()) << text;
    return tag;
}

TEST(XmlTags, HaveNamesAttributesAndText) {
    XmlTag const tag = onlyTag("<?xml version=\"1.0\"?>\n<ome:Pixels  ome:SizeX = '3'\n B=\"a>b\" >text");
    EXPECT_EQ(tag.name, "Pixels");
    EXPECT_EQ(tag.attributes, (std::map<std::string, std::string>{{"SizeX", "3"}, {"B", "a>b"}}));
    EXPECT_EQ(tag.text, "text");
    EXPECT_FALSE(tag.isEnd);
    EXPECT_FALSE(tag.isEmpty);
}

TEST(XmlTags, EndOrAreTheirOwnEnd) {
    EXPECT_TRUE(onlyTag("</a>").isEnd);
    EXPECT_FALSE(onlyTag("</a >").isEmpty);
    EXPECT_TRUE(onlyTag("<a/>").isEmpty);
    EXPECT_EQ(onlyTag("<a b='1'/>").attributes.at("b"), "1");
}

TEST(XmlTags, ReferencesAreResolved) {
    XmlTag const tag = onlyTag("<a u='&#181;m' v='&#xb5;&#x20AC;&#x1F600;' w='&lt;&amp;&quot;&apos;&gt;'>&amp;");
    EXPECT_EQ(tag.attributes.at("u"), "\xC2\xB5m");
    EXPECT_EQ(tag.attributes.at("v"), "\xC2\xB5\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_EQ(tag.attributes.at("w"), "<&\"'>");
    EXPECT_EQ(tag.text, "&");
}

TEST(XmlTags, ReferencesToNothingStay) {
    for (std::string const text : {"&", "&;", "&x;", "&#;", "&#x;", "&#0;", "&#x110000;", "&#12a;", "&amp"}) {
        EXPECT_EQ(onlyTag("<a b='" + text + "'/>").attributes.at("b"), text);
    }
}

TEST(XmlTags, PassOverWhatIsNoTag) { EXPECT_EQ(onlyTag("<!DOCTYPE x><!-- <b> --><![CDATA[<c>]]><a/>").name, "a"); }

TEST(XmlTags, StopWhereTheTextIsDamaged) {
    for (std::string const text : {"<", "<a", "<a b", "<a b=", "<a b=c>", "<a b='c", "<a b='<'>", "< a>", "<a 'b'>",
                                   "<!-- a", "<?xml", "<![CDATA[ ]]", "<!x", "<a/", "<>"}) {
        XmlTags tags(text);
        XmlTag tag;
        EXPECT_FALSE(tags.next(tag)) << text;
        EXPECT_TRUE(tags.isDamaged()) << text;
    }
}

TEST(XmlTags, EndWithTheText) {
    XmlTags tags("no tag > here");
    XmlTag tag;
    EXPECT_FALSE(tags.next(tag));
    EXPECT_FALSE(tags.isDamaged());
}

} // namespace
