#pragma once

// The dialog base of every panel, frame and page: a dialog built from a
// template of the resource module, with controls known by number, handlers
// bound by a message map, colours from a table and a message filter.

#include "KRNControlIds.h"

#include <QDialog>
#include <QHash>

#include <functional>
#include <initializer_list>
#include <vector>

class QEvent;

class CKRNDialog : public QDialog {
    Q_OBJECT
public:
    explicit CKRNDialog(int templateId, QWidget* parent = nullptr);
    ~CKRNDialog() override;

    int TemplateId() const { return m_nTemplateId; }

    // Creates the dialog from its template, runs OnInitDialog and the modal
    // loop. Returns the code given to EndDialog (IDOK, IDCANCEL), or -1 when
    // the template is missing from the resource module (the user is told).
    virtual int DoModal();
    // Creates the dialog from its template without a modal loop: as a page
    // inside `parent` when `asChild`, else as a window of its own. Runs
    // OnInitDialog. False when the template is missing.
    bool Create(QWidget* parent, bool asChild);
    bool IsCreated() const { return m_bCreated; }
    void EndDialog(int result);

    QWidget* GetDlgItem(int id) const;
    template <class T>
    T* GetDlgItemAs(int id) const { return qobject_cast<T*>(GetDlgItem(id)); }
    void SetDlgItemText(int id, const QString& text);
    QString GetDlgItemText(int id) const;
    void EnableDlgItem(int id, bool enable);
    void ShowDlgItem(int id, bool show);
    // Every numbered control of this dialog (pages inside it not included).
    const QHash<int, QWidget*>& Controls() const { return m_Controls; }

    virtual bool OnInitDialog() { return true; }
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }
    // Sees every event of this dialog's widgets before they do (pages first,
    // then the frames around them). True swallows the event.
    virtual bool PreTranslateMessage(QObject* target, QEvent* event);

    // Runs OnInitDialog again with the fields' change notifications held back.
    void InitDialogAgain();

protected:
    // Message map: binds a notification of a control to a handler. Declared in
    // the constructor; connected when the template is loaded.
    void OnChange(int id, std::function<void()> handler);
    void OnKillFocus(int id, std::function<void()> handler);
    void OnClicked(int id, std::function<void()> handler);
    template <class T>
    void OnChange(int id, void (T::*handler)()) { OnChange(id, [this, handler] { (static_cast<T*>(this)->*handler)(); }); }
    template <class T>
    void OnKillFocus(int id, void (T::*handler)()) { OnKillFocus(id, [this, handler] { (static_cast<T*>(this)->*handler)(); }); }
    template <class T>
    void OnClicked(int id, void (T::*handler)()) { OnClicked(id, [this, handler] { (static_cast<T*>(this)->*handler)(); }); }

    // Holds back change notifications while the dialog writes its own fields.
    class FillGuard {
    public:
        explicit FillGuard(CKRNDialog* dialog) : m_dialog(dialog) { ++m_dialog->m_nFillDepth; }
        ~FillGuard() { --m_dialog->m_nFillDepth; }
        FillGuard(const FillGuard&) = delete;
        FillGuard& operator=(const FillGuard&) = delete;

    private:
        CKRNDialog* m_dialog;
    };
    // Writes a field without its change handler running (for restoring a
    // refused entry).
    void RestoreDlgItemText(int id, const QString& text);

    // Control colours: text and background (colour references 0x00BBGGRR).
    void SetCtlColor(int id, unsigned text, unsigned background);
    void SetCtlColor(std::initializer_list<int> ids, unsigned text, unsigned background);
    // Background of the dialog itself and colours of controls not in the table.
    void SetDialogColor(unsigned text, unsigned background);

    // Shows bitmap `bitmapId` of the resource module on a static or a button.
    void SetBitmap(int id, int bitmapId, bool sizeToBitmap = false);
    // A bitmap key sized to its bitmaps: `normal` at rest, `selected` while
    // held down, `focused` while it has the focus.
    void SetBitmapButton(int id, int normal, int selected, int focused);

    void keyPressEvent(QKeyEvent* event) override;
    void reject() override { OnCancel(); }
    void accept() override { OnOK(); }
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Notification { Change, KillFocus, Click };
    struct MapEntry {
        int id;
        Notification what;
        std::function<void()> handler;
    };
    struct ColorEntry {
        unsigned text, background;
    };

    bool LoadTemplate();
    void Connect(const MapEntry& entry);
    void ApplyColor(QWidget* w, unsigned text, unsigned background);

    int m_nTemplateId;
    bool m_bCreated = false;
    int m_nFillDepth = 0;
    QHash<int, QWidget*> m_Controls;
    std::vector<MapEntry> m_MessageMap;
    QHash<int, ColorEntry> m_Colors;
    bool m_bHasDialogColor = false;
    ColorEntry m_DialogColor{0, 0};
};
