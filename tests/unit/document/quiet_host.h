// A running host without windows, applications and a disk of its own: drawings on disk are what a test makes
// up.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "database/services.h"
#include "host/host.h"

class QuietHost : public workbench::database::DrawingFiles,
                  public workbench::host::Files,
                  public workbench::host::Surface,
                  public workbench::host::LibraryLoader {
  public:
    // Gives an empty drawing its content.
    using Fill = std::function<void(AcDbDatabase&)>;

    QuietHost();
    ~QuietHost() override;
    QuietHost(const QuietHost&) = delete;
    QuietHost& operator=(const QuietHost&) = delete;

    void AddDrawing(const std::wstring& path, const Fill& fill);

  private:
    Acad::ErrorStatus Read(const std::wstring& path, AcDbDatabase& database, std::wstring& error) override;
    Acad::ErrorStatus Write(const std::wstring& path, const AcDbDatabase& database,
                            std::wstring& error) override;

    bool Exists(const std::wstring& path) override;
    bool IsReadOnly(const std::wstring&) override { return false; }
    bool ReadText(const std::wstring&, std::wstring&) override { return false; }
    bool WriteText(const std::wstring&, const std::wstring&) override { return true; }
    void Remove(const std::wstring&) override {}
    std::wstring TimeText() override { return L"2026-11-21 10:30:00"; }

    void Print(const std::wstring&) override {}
    workbench::host::SaveAnswer AskSave(const std::wstring&) override {
        return workbench::host::SaveAnswer::kDiscard;
    }
    std::wstring AskSavePath(const std::wstring&) override { return {}; }

    bool Load(const std::wstring&, workbench::host::Library&, std::wstring&) override { return false; }
    void Free(const workbench::host::Library&) override {}

    std::map<std::wstring, Fill> m_drawings;  // by path in capitals
    std::unique_ptr<workbench::host::Host> m_host;
};
