#pragma once

#include "platform/outcome.h"
#include "xml_fragment.h"

#include <cstddef>
#include <string_view>

namespace lineara::store {

/// A whole file: what stands around its root element is looked at at once, what stands within it stretch by stretch.
///
/// A file is never one tree: that would take many times its size, and most of the time to build. Stretches end after
/// an object; a stretch that is well-formed by itself proves that it ended between two children of the root.
class XmlFile
{
public:
    /// `text` must outlive the file. Takes UTF-8 text whose root element is called `rootName`, without a document type
    /// declaration. The failure names the place and the reason.
    static Outcome<XmlFile> open(std::string_view text, std::string_view rootName);

    /// Whether the file holds anything that can't be kept: comments outside the root, attributes of the root.
    bool hasContentAroundRoot() const { return hasContentAroundRoot_; }

    /// The first line of the root element.
    qsizetype rootLine() const { return lineAt(text_, rootBegin_); }

    /// Everything up to and with the start tag of the root, and its end tag with everything after it.
    std::string_view beginning() const { return text_.substr(0, rootTagEnd_); }
    std::string_view ending() const { return text_.substr(end_); }

    /// How much of the text was handed out, from 0 to 1.
    double partRead() const { return static_cast<double>(at_) / static_cast<double>(text_.size()); }

    /// Parses the next children of the root into the fragment. False after the last ones.
    Outcome<bool> next(XmlFragment& fragment);

private:
    explicit XmlFile(std::string_view text) : text_(text) {}

    Outcome<Done> readProlog();
    Outcome<Done> readRootTag(std::string_view rootName);
    Outcome<Done> readEpilog(std::string_view rootName);
    Outcome<Done> checkAround(const XmlFragment& fragment);

    std::string_view text_;
    std::size_t rootBegin_ = 0;
    std::size_t rootTagEnd_ = 0;
    std::size_t at_ = 0;  ///< where the next stretch begins
    std::size_t end_ = 0; ///< where the end tag of the root begins
    bool hasContentAroundRoot_ = false;
};

} // namespace lineara::store
