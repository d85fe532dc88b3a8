#include "command_stack.h"

#include <algorithm>

#include "database/object_data.h"
#include "host.h"

namespace workbench::host {
namespace {

using database::UpperCase;

bool IsSameName(const std::wstring& left, const std::wstring& right) {
    return UpperCase(left) == UpperCase(right);
}

bool IsMissing(const ACHAR* text) {
    return text == nullptr || *text == 0;
}

}  // namespace

Acad::ErrorStatus CommandStack::addCommand(const ACHAR* groupName, const ACHAR* globalName,
                                           const ACHAR* localName, Adesk::Int32 flags,
                                           AcRxFunctionPtr function, AcEdUIContext*, int,
                                           const AcRxResourceInstance*, AcEdCommand** command) {
    if (command != nullptr) {
        *command = nullptr;
    }
    if (IsMissing(groupName) || IsMissing(globalName) || IsMissing(localName) || function == nullptr) {
        return Acad::eInvalidInput;
    }
    for (const AddedCommand& present : m_commands) {
        if (IsSameName(present.group, groupName) &&
            (IsSameName(present.globalName, globalName) || IsSameName(present.localName, localName))) {
            return Acad::eDuplicateKey;
        }
    }
    m_commands.push_back({groupName, globalName, localName, flags, function, m_host.Apps().Running()});
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeCmd(const ACHAR* groupName, const ACHAR* globalName) {
    if (IsMissing(groupName) || IsMissing(globalName)) {
        return Acad::eInvalidInput;
    }
    const auto removed = std::erase_if(m_commands, [=](const AddedCommand& command) {
        return IsSameName(command.group, groupName) && IsSameName(command.globalName, globalName);
    });
    return removed == 0 ? Acad::eKeyNotFound : Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const ACHAR* groupName) {
    if (IsMissing(groupName)) {
        return Acad::eInvalidInput;
    }
    const auto removed = std::erase_if(
        m_commands, [=](const AddedCommand& command) { return IsSameName(command.group, groupName); });
    return removed == 0 ? Acad::eKeyNotFound : Acad::eOk;
}

void CommandStack::AddBuiltIn(BuiltInCommand command) {
    m_builtIns.push_back(std::move(command));
}

std::optional<AddedCommand> CommandStack::FindAdded(const std::wstring& typed) const {
    const bool isGlobal = typed.starts_with(L"_");
    for (const AddedCommand& command : m_commands) {
        const bool found = isGlobal ? IsSameName(command.globalName, typed) ||
                                          IsSameName(command.globalName, typed.substr(1))
                                    : IsSameName(command.localName, typed);
        if (found) {
            return command;
        }
    }
    return std::nullopt;
}

const BuiltInCommand* CommandStack::FindBuiltIn(const std::wstring& typed) const {
    const std::wstring name = UpperCase(typed.substr(std::min(typed.find_first_not_of(L"_."), typed.size())));
    // Later ones hide earlier ones: the program with the windows replaces what the host has by itself.
    const auto found = std::find_if(m_builtIns.rbegin(), m_builtIns.rend(),
                                    [&](const auto& command) { return command.name == name; });
    return found == m_builtIns.rend() ? nullptr : &*found;
}

std::size_t CommandStack::RemoveOf(const Application* application) {
    return std::erase_if(m_commands,
                         [=](const AddedCommand& command) { return command.application == application; });
}

}  // namespace workbench::host
