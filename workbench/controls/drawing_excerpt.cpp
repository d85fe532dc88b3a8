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

// Walks the pairs of lines, a code and its value.
class PairWalk {
  public:
    explicit PairWalk(std::string_view bytes) : m_bytes(bytes) {}

    bool Next(std::string_view& code, std::string_view& value) {
        m_pair = m_at;
        return NextLine(code) && NextLine(value);
    }
    // Where the last pair begins.
    size_t PairStart() const { return m_pair; }

  private:
    bool NextLine(std::string_view& line) {
        if (m_at >= m_bytes.size()) return false;
        const size_t end = std::min(m_bytes.find('\n', m_at), m_bytes.size());
        line = Trim(m_bytes.substr(m_at, end - m_at));
        m_at = std::min(end + 1, m_bytes.size());
        return true;
    }

    std::string_view m_bytes;
    size_t m_at = 0;
    size_t m_pair = 0;
};

// Parts of the entity ahead of them: cutting here would tear it.
bool ContinuesEntity(std::string_view type) {
    return type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
}

}  // namespace

std::string TakeDrawingExcerpt(std::string_view bytes, std::size_t mostEntities) {
    PairWalk walk(bytes);
    std::string_view code, value;
    bool sectionNamed = false, inEntities = false;
    size_t entities = 0;
    while (walk.Next(code, value)) {
        if (sectionNamed) inEntities = code == "2" && value == "ENTITIES";
        sectionNamed = code == "0" && value == "SECTION";
        if (!inEntities || code != "0") continue;
        if (value == "ENDSEC") break;
        if (ContinuesEntity(value) || ++entities <= mostEntities) continue;
        return std::string(bytes.substr(0, walk.PairStart())) + "  0\nENDSEC\n  0\nEOF\n";
    }
    return std::string(bytes);
}

}  // namespace controls
