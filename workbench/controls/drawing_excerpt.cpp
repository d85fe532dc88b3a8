#include "controls/drawing_excerpt.h"

#include <algorithm>

namespace controls {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trim(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

// A part of the file from one group 0 to the next.
struct Part {
    std::string_view text;
    std::string_view type;  // the group 0's value
    std::string_view name;  // the group 2 right behind it: of a section
    bool isTorn = false;    // the file ends before another group 0
};

// Walks the pairs of lines, a code and its value, part by part.
class PartWalk {
  public:
    explicit PartWalk(std::string_view bytes) : m_bytes(bytes) {
        std::string_view code, value;
        while (NextPair(code, value) && code != "0") {
        }
        m_type = value;
        m_head = m_bytes.substr(0, m_pair);
    }

    // What precedes the first part.
    std::string_view Head() const { return m_head; }

    bool Next(Part& part) {
        if (m_isDone) return false;
        const size_t start = m_pair;
        part = {{}, m_type, {}, false};
        std::string_view code, value;
        bool isFirst = true;
        bool found = false;
        while ((found = NextPair(code, value)) && code != "0") {
            if (isFirst && code == "2") part.name = value;
            isFirst = false;
        }
        m_isDone = part.isTorn = !found;
        if (!found) m_pair = m_bytes.size();
        part.text = m_bytes.substr(start, m_pair - start);
        m_type = value;
        return true;
    }

  private:
    bool NextPair(std::string_view& code, std::string_view& value) {
        m_pair = m_at;
        if (NextLine(code) && NextLine(value)) return true;
        m_isDone = true;
        return false;
    }
    bool NextLine(std::string_view& line) {
        if (m_at >= m_bytes.size()) return false;
        const size_t end = std::min(m_bytes.find('\n', m_at), m_bytes.size());
        line = Trim(m_bytes.substr(m_at, end - m_at));
        m_at = std::min(end + 1, m_bytes.size());
        return true;
    }

    std::string_view m_bytes;
    std::string_view m_head;
    std::string_view m_type;
    size_t m_at = 0;
    size_t m_pair = 0;  // where the last pair begins
    bool m_isDone = false;
};

// Parts of the entity ahead of them.
bool IsChained(std::string_view type) {
    return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

// What is left of the limits, and what became of the entity that chained parts belong to.
class Budget {
  public:
    explicit Budget(const ExcerptLimits& limits) : m_left(limits) {}

    bool IsSpent() const { return m_left.entities == 0; }
    bool Take(const Part& part) {
        // The end of a chain goes where its beginning went: without it the whole file would be refused.
        if (part.type == "SEQEND") return m_isKept;
        const bool fits = part.text.size() <= m_left.bytes;
        if (IsChained(part.type)) {
            if (!m_isKept || !fits) return false;
        } else {
            m_isKept = fits && m_left.entities > 0;
            if (!m_isKept) return false;
            --m_left.entities;
        }
        m_left.bytes -= part.text.size();
        return true;
    }

  private:
    ExcerptLimits m_left;
    bool m_isKept = false;
};

constexpr char kEnd[] = "  0\nENDSEC\n  0\nEOF\n";

// Puts the excerpt together, part by part.
class Excerpt {
  public:
    explicit Excerpt(const ExcerptLimits& limits) : m_blocks(limits), m_model(limits), m_limits(limits) {}

    // False when the model has ended.
    bool Take(const Part& part) {
        if (part.type == "SECTION") m_section = part.name;
        if (m_section == "ENTITIES" && part.type != "SECTION") return TakeOfModel(part);
        const bool isOfBlock = m_section == "BLOCKS" && part.type != "SECTION" && part.type != "ENDSEC" &&
                               part.type != "BLOCK" && part.type != "ENDBLK" && part.type != "EOF";
        if (isOfBlock && !m_blocks.Take(part)) return true;
        if (!isOfBlock) m_tableBytes += part.text.size();
        m_text += part.text;
        if (part.type == "ENDSEC") m_section = {};
        return true;
    }
    bool ReachedModel() const { return m_section == "ENTITIES"; }
    bool HasTooLargeTables() const { return m_tableBytes > m_limits.bytes; }
    // Closes the model; without one, the file ends as it is.
    std::string Finish() { return std::move(m_text) + (ReachedModel() ? kEnd : ""); }

  private:
    bool TakeOfModel(const Part& part) {
        if (part.type == "ENDSEC" || (m_model.IsSpent() && !IsChained(part.type))) return false;
        if (m_model.Take(part)) m_text += part.text;
        return true;
    }

    Budget m_blocks;
    Budget m_model;
    ExcerptLimits m_limits;
    std::string_view m_section;
    std::size_t m_tableBytes = 0;
    std::string m_text;
};

}  // namespace

std::string TakeDrawingExcerpt(std::string_view bytes, bool isWhole, const ExcerptLimits& limits) {
    PartWalk walk(bytes);
    Excerpt excerpt(limits);
    Part part;
    bool isDxf = false;
    bool isEnded = false;
    while (!isEnded && walk.Next(part)) {
        isDxf = isDxf || part.type == "SECTION";
        isEnded = part.type == "EOF" || (!part.isTorn && !excerpt.Take(part));
        if (isDxf && part.type == "EOF" && !excerpt.ReachedModel()) excerpt.Take(part);
        if (excerpt.HasTooLargeTables()) return {};
    }
    if (!isDxf) return std::string(bytes);
    const bool isUsable = isEnded || (!isWhole && excerpt.ReachedModel());
    return isUsable ? std::string(walk.Head()) + excerpt.Finish() : std::string();
}

}  // namespace controls
