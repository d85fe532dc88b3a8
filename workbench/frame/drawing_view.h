// The window that shows the current drawing.
#pragma once

#include <arx_port.h>

#include <acdocman.h>
#include <afxwin.h>

#include <functional>
#include <map>

#include "frame/display_list.h"
#include "frame/text_painter.h"
#include "frame/view_transform.h"

namespace frame {

// Mouse: the wheel zooms about the pointer, the middle button pans, its double click shows the whole drawing.
// The object deletes itself when its window goes.
class ARX_PORT DrawingView : public CView {
  public:
    struct Events {
        std::function<void(WorldPoint)> cursorMoved;
        std::function<void()> mouseMoved;  // every mouse move, those without a change of place too
        std::function<void(wchar_t)> typed;
    };

    explicit DrawingView(Events events) : m_events(std::move(events)) {}
    ~DrawingView() override;

    bool CreateIn(CWnd& parent);
    // Null: no drawing is open. A drawing that is shown for the first time is shown whole; later it comes
    // back as the user left it.
    void ShowDocument(AcApDocument* document);
    void ForgetDocument(AcApDocument* document);
    // The drawing's content has changed.
    void Regenerate();
    void ZoomExtents();
    void ZoomBy(double factor);
    void SetLightBackground(bool light);
    bool LightBackground() const { return m_background != kDarkBackground; }

    const ViewTransform& Transform() const { return m_view; }
    const DisplayList& Content() const { return m_list; }
    Color Background() const { return m_background; }

    static constexpr Color kDarkBackground = 0x212830;
    static constexpr Color kLightBackground = 0xFFFFFF;

  protected:
    void OnDraw(CDC* dc) override;
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int cx, int cy);
    afx_msg BOOL OnMouseWheel(UINT flags, short delta, CPoint point);
    afx_msg void OnMouseMove(UINT flags, CPoint point);
    afx_msg void OnMouseLeave();
    afx_msg void OnMButtonDown(UINT flags, CPoint point);
    afx_msg void OnMButtonUp(UINT flags, CPoint point);
    afx_msg LRESULT OnMButtonDblClk(WPARAM keys, LPARAM point);
    afx_msg void OnLButtonDown(UINT flags, CPoint point);
    afx_msg void OnChar(UINT character, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

  private:
    void Redraw();
    bool MakePicture();
    void DropPicture();
    void Render();
    void DrawAxes(Canvas& canvas);
    void DrawCrosshair(CDC& dc);
    void InvalidateCrosshair();

    Events m_events;
    AcApDocument* m_document = nullptr;
    std::map<AcApDocument*, ViewTransform> m_views;
    ViewTransform m_view;
    DisplayList m_list;
    TextPainter m_texts;
    Color m_background = kDarkBackground;

    HDC m_pictureDc = nullptr;
    HBITMAP m_picture = nullptr;
    HGDIOBJ m_bitmapBefore = nullptr;
    Color* m_pixels = nullptr;
    bool m_dirty = true;

    bool m_panning = false;
    bool m_cursorInside = false;
    CPoint m_cursor;
};

}  // namespace frame
