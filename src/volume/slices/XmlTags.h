// SPDX-FileCopyrightText: The TAMO authors
// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace tamo::volume {

/// A tag of an XML text: <name a="1">, <name/> or </name>.
struct XmlTag {
    /// Without the prefix of a name space.
    std::string name;
    /// Likewise named; their references, such as "&#181;", are resolved to UTF-8.
    std::map<std::string, std::string> attributes;
    bool isEnd = false;
    /// Whether the tag is its own end.
    bool isEmpty = false;
    /// What stands between this tag and the next, references resolved.
    std::string text;
};

/// Goes through the tags of an XML text one by one.
///
/// Comments, instructions, declarations and CDATA are passed over; whether start and end tags match is not looked at,
/// and entities that a document defines itself are not known. The volume's description in a TIFF file needs a few
/// attributes of a few tags, of files from anywhere: that does not pay for a library, whose parsers expand entities,
/// fetch documents and recurse as deep as the text wants them to.
class XmlTags {
  public:
    /// The text has to outlive the object.
    explicit XmlTags(std::string_view text) : _text(text) {}

    /// Reads the next tag; returns false at the end of the text, and where the text is no XML from there on.
    [[nodiscard]] bool next(XmlTag& tag);
    /// Returns whether the text stopped being XML.
    [[nodiscard]] bool isDamaged() const { return _isDamaged; }

  private:
    bool skipTo(std::string_view end);
    void skipBlanks();
    [[nodiscard]] bool startsWith(std::string_view start) const { return _text.substr(_at, start.size()) == start; }
    std::string takeName();
    bool takeAttribute(XmlTag& tag);
    bool takeTag(XmlTag& tag);

    std::string_view _text;
    std::size_t _at = 0;
    bool _isDamaged = false;
};

} // namespace tamo::volume
