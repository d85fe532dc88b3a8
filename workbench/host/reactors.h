// Lists of reactors that may change while they are being told something.
#pragma once

#include <algorithm>
#include <vector>

namespace workbench::host {

template <class Reactor>
class Reactors {
  public:
    void Add(Reactor* reactor) {
        if (reactor != nullptr && !Has(reactor)) {
            m_reactors.push_back(reactor);
        }
    }
    void Remove(Reactor* reactor) { std::erase(m_reactors, reactor); }
    std::size_t Count() const { return m_reactors.size(); }

    // In the order in which they came. One that is removed meanwhile is not told, one that is added is not
    // either.
    template <class Tell>
    void ForEach(Tell tell) {
        const std::vector<Reactor*> told = m_reactors;
        for (Reactor* reactor : told) {
            if (Has(reactor)) {
                tell(*reactor);
            }
        }
    }

  private:
    bool Has(Reactor* reactor) const {
        return std::find(m_reactors.begin(), m_reactors.end(), reactor) != m_reactors.end();
    }
    std::vector<Reactor*> m_reactors;
};

}  // namespace workbench::host
