#include "CKRNDialog.h"

#include "CKRNFormLoader.h"
#include "KRNColors.h"
#include "KRNMessageBox.h"
#include "KRNResources.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QKeyEvent>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace {

// Feeds the events of a panel's widgets to the PreTranslateMessage of the
// dialogs around it, innermost first, as the old framework's message loop did.
// Qt's notices of a widget's own state (polished, moved, shown, reparented,
// recoloured, ...) are no messages of that loop and are left out: they come
// by the thousand while a panel opens, and a panel that refreshes its clock
// on every message would spend its opening on them.
class KRNMessageFilter : public QObject {
public:
    static void Acquire() {
        if (s_users++ == 0 && QCoreApplication::instance()) {
            s_filter = new KRNMessageFilter;
            QCoreApplication::instance()->installEventFilter(s_filter);
        }
    }
    static void Release() {
        if (--s_users == 0) {
            delete s_filter;  // removes itself from the application
            s_filter = nullptr;
        }
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWidgetType() || IsStateNotice(event->type())) return false;
        for (QObject* o = watched; o; o = o->parent()) {
            if (auto* dialog = qobject_cast<CKRNDialog*>(o)) {
                QPointer<CKRNDialog> alive(dialog);
                if (dialog->PreTranslateMessage(watched, event)) return true;
                if (!alive) return false;
            }
        }
        return false;
    }

private:
    static bool IsStateNotice(QEvent::Type type) {
        switch (type) {
        case QEvent::Create: case QEvent::Polish: case QEvent::PolishRequest: case QEvent::ChildPolished:
        case QEvent::ChildAdded: case QEvent::ChildRemoved: case QEvent::ParentChange:
        case QEvent::ParentAboutToChange: case QEvent::Show: case QEvent::Hide: case QEvent::ShowToParent:
        case QEvent::HideToParent: case QEvent::Move: case QEvent::Resize: case QEvent::LayoutRequest:
        case QEvent::DynamicPropertyChange: case QEvent::EnabledChange: case QEvent::StyleChange:
        case QEvent::FontChange: case QEvent::PaletteChange: case QEvent::ZOrderChange:
        case QEvent::WindowTitleChange: case QEvent::ContentsRectChange: case QEvent::CursorChange:
        case QEvent::MouseTrackingChange: case QEvent::AcceptDropsChange: return true;
        default: return false;
        }
    }
    static inline int s_users = 0;
    static inline KRNMessageFilter* s_filter = nullptr;
};

// Adds bitmap `bitmapId` to an icon at both sizes the module holds: Qt paints
// the icon with the one that suits the screen the button is on, also after it
// moves to another screen.
void AddBitmap(QIcon& icon, int bitmapId, QIcon::Mode mode) {
    icon.addPixmap(KRNResources::Bitmap(bitmapId), mode);
    const QPixmap sharp = KRNResources::Bitmap(bitmapId, 2.0);
    if (sharp.devicePixelRatio() > 1.0) icon.addPixmap(sharp, mode);
}

}  // namespace

CKRNDialog::CKRNDialog(int templateId, QWidget* parent) : QDialog(parent), m_nTemplateId(templateId) {
    KRNMessageFilter::Acquire();
}

CKRNDialog::~CKRNDialog() { KRNMessageFilter::Release(); }

bool CKRNDialog::LoadTemplate() {
    if (m_bCreated) return true;
    QByteArray form = KRNResources::Form(m_nTemplateId);
    if (form.isEmpty()) {
        KRNMessageBox(QStringLiteral("The dialog template %1 is missing from the resource module \"%2\".")
                          .arg(m_nTemplateId)
                          .arg(KRNResources::CurrentPath().isEmpty() ? QStringLiteral("(none loaded)")
                                                                     : KRNResources::CurrentPath()));
        return false;
    }
    QBuffer buffer(&form);
    buffer.open(QIODevice::ReadOnly);
    CKRNFormLoader loader;
    QWidget* root = loader.load(&buffer, this);
    if (!root) {
        KRNMessageBox(QStringLiteral("The dialog template %1 of the resource module cannot be read: %2")
                          .arg(m_nTemplateId)
                          .arg(loader.errorString()));
        return false;
    }
    CKRNFormLoader::ApplyPalette(root);
    root->move(0, 0);
    setFixedSize(root->size());
    if (!root->windowTitle().isEmpty()) setWindowTitle(root->windowTitle());

    for (QWidget* w : root->findChildren<QWidget*>()) {
        CKRNFormLoader::ApplyPalette(w);
        bool numbered = false;
        const int id = KRNControlId(w->objectName(), &numbered);
        if (!numbered) continue;
        // Identifier -1 finds the first unnumbered static.
        if (!m_Controls.contains(id)) m_Controls.insert(id, w);
        // Enter is the dialog's OK command, never "press the focused button".
        if (auto* button = qobject_cast<QPushButton*>(w)) {
            button->setAutoDefault(false);
            button->setDefault(false);
        }
    }
    m_bCreated = true;
    // OK and Cancel buttons are the dialog's OK and Cancel commands.
    if (auto* ok = qobject_cast<QAbstractButton*>(GetDlgItem(IDOK)))
        connect(ok, &QAbstractButton::clicked, this, [this] { OnOK(); });
    if (auto* cancel = qobject_cast<QAbstractButton*>(GetDlgItem(IDCANCEL)))
        connect(cancel, &QAbstractButton::clicked, this, [this] { OnCancel(); });
    for (const MapEntry& entry : m_MessageMap) Connect(entry);
    if (m_bHasDialogColor) SetDialogColor(m_DialogColor.text, m_DialogColor.background);
    for (auto it = m_Colors.cbegin(); it != m_Colors.cend(); ++it)
        if (QWidget* w = GetDlgItem(it.key())) ApplyColor(w, it->text, it->background);
    return true;
}

bool CKRNDialog::Create(QWidget* parent, bool asChild) {
    if (parent != parentWidget()) setParent(parent, asChild ? Qt::Widget : Qt::Window);
    else if (asChild) setWindowFlags(Qt::Widget);
    if (!LoadTemplate()) return false;
    InitDialogAgain();
    return true;
}

int CKRNDialog::DoModal() {
    if (!Create(parentWidget(), false)) return -1;
    setModal(true);
    return exec();
}

void CKRNDialog::EndDialog(int result) { QDialog::done(result); }

void CKRNDialog::InitDialogAgain() {
    FillGuard guard(this);
    OnInitDialog();
}

QWidget* CKRNDialog::GetDlgItem(int id) const { return m_Controls.value(id, nullptr); }

void CKRNDialog::SetDlgItemText(int id, const QString& text) {
    QWidget* w = GetDlgItem(id);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) {
        if (edit->text() != text) edit->setText(text);
    } else if (auto* label = qobject_cast<QLabel*>(w)) {
        label->setText(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(w)) {
        button->setText(text);
    } else if (w) {
        w->setWindowTitle(text);
    }
}

QString CKRNDialog::GetDlgItemText(int id) const {
    QWidget* w = GetDlgItem(id);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) return edit->text();
    if (auto* label = qobject_cast<QLabel*>(w)) return label->text();
    if (auto* button = qobject_cast<QAbstractButton*>(w)) return button->text();
    return w ? w->windowTitle() : QString();
}

void CKRNDialog::RestoreDlgItemText(int id, const QString& text) {
    FillGuard guard(this);
    SetDlgItemText(id, text);
}

void CKRNDialog::EnableDlgItem(int id, bool enable) {
    if (QWidget* w = GetDlgItem(id)) w->setEnabled(enable);
}

void CKRNDialog::ShowDlgItem(int id, bool show) {
    if (QWidget* w = GetDlgItem(id)) w->setVisible(show);
}

// ---- message map -----------------------------------------------------------

void CKRNDialog::OnChange(int id, std::function<void()> handler) {
    m_MessageMap.push_back({id, Notification::Change, std::move(handler)});
    if (m_bCreated) Connect(m_MessageMap.back());
}

void CKRNDialog::OnKillFocus(int id, std::function<void()> handler) {
    m_MessageMap.push_back({id, Notification::KillFocus, std::move(handler)});
    if (m_bCreated) Connect(m_MessageMap.back());
}

void CKRNDialog::OnClicked(int id, std::function<void()> handler) {
    m_MessageMap.push_back({id, Notification::Click, std::move(handler)});
    if (m_bCreated) Connect(m_MessageMap.back());
}

void CKRNDialog::Connect(const MapEntry& entry) {
    QWidget* w = GetDlgItem(entry.id);
    if (!w) return;
    const std::function<void()> handler = entry.handler;
    switch (entry.what) {
    case Notification::Change:
        if (auto* edit = qobject_cast<QLineEdit*>(w))
            connect(edit, &QLineEdit::textChanged, this, [this, handler] {
                if (m_nFillDepth == 0) handler();
            });
        break;
    case Notification::Click:
        if (auto* button = qobject_cast<QAbstractButton*>(w))
            connect(button, &QAbstractButton::clicked, this, [handler] { handler(); });
        break;
    case Notification::KillFocus:
        w->installEventFilter(this);
        w->setProperty("krnKillFocus", true);
        break;
    }
}

bool CKRNDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut && watched->property("krnKillFocus").toBool()) {
        bool numbered = false;
        const int id = KRNControlId(watched->objectName(), &numbered);
        for (const MapEntry& entry : m_MessageMap)
            if (numbered && entry.id == id && entry.what == Notification::KillFocus && GetDlgItem(id) == watched)
                entry.handler();
    }
    return QDialog::eventFilter(watched, event);
}

// ---- keys ----------------------------------------------------------------

bool CKRNDialog::PreTranslateMessage(QObject*, QEvent*) { return false; }

void CKRNDialog::keyPressEvent(QKeyEvent* event) {
    // A page inside a frame leaves the keys to the frame.
    if (!isWindow()) {
        event->ignore();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: OnOK(); break;
    case Qt::Key_Escape: OnCancel(); break;
    default: QDialog::keyPressEvent(event); break;
    }
}

// ---- colours and bitmaps -----------------------------------------------------

void CKRNDialog::ApplyColor(QWidget* w, unsigned text, unsigned background) {
    QPalette pal = w->palette();
    const QColor fg = KRNColorRef(text), bg = KRNColorRef(background);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        pal.setColor(role, fg);
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Base, QPalette::Button})
        pal.setColor(role, bg);
    // Disabled fields keep the screen's colours; the machine greys nothing out.
    pal.setColor(QPalette::Disabled, QPalette::Text, fg);
    pal.setColor(QPalette::Disabled, QPalette::WindowText, fg);
    pal.setColor(QPalette::Disabled, QPalette::Base, bg);
    w->setPalette(pal);
    if (qobject_cast<QLabel*>(w)) w->setAutoFillBackground(true);
}

void CKRNDialog::SetCtlColor(int id, unsigned text, unsigned background) {
    m_Colors.insert(id, {text, background});
    if (QWidget* w = GetDlgItem(id)) ApplyColor(w, text, background);
}

void CKRNDialog::SetCtlColor(std::initializer_list<int> ids, unsigned text, unsigned background) {
    for (int id : ids) SetCtlColor(id, text, background);
}

void CKRNDialog::SetDialogColor(unsigned text, unsigned background) {
    m_bHasDialogColor = true;
    m_DialogColor = {text, background};
    QPalette pal = palette();
    pal.setColor(QPalette::Window, KRNColorRef(background));
    pal.setColor(QPalette::WindowText, KRNColorRef(text));
    setPalette(pal);
    setAutoFillBackground(true);
}

void CKRNDialog::SetBitmapButton(int id, int normal, int selected, int focused) {
    auto* button = GetDlgItemAs<QAbstractButton>(id);
    if (!button) return;
    // Qt draws a focused button's icon in its Active mode.
    auto faces = [=](bool held) {
        QIcon icon;
        AddBitmap(icon, held ? selected : normal, QIcon::Normal);
        AddBitmap(icon, held ? selected : focused, QIcon::Active);
        return icon;
    };
    const QSize size = KRNResources::Bitmap(normal).size();
    button->setIcon(faces(false));
    button->setIconSize(size);
    if (!size.isEmpty()) button->resize(size);
    // The faces follow the key from the first call on; later calls only set them again.
    if (button->property("krnBitmapKey").toBool()) return;
    button->setProperty("krnBitmapKey", true);
    connect(button, &QAbstractButton::pressed, button, [button, faces] { button->setIcon(faces(true)); });
    connect(button, &QAbstractButton::released, button, [button, faces] { button->setIcon(faces(false)); });
}

void CKRNDialog::SetBitmap(int id, int bitmapId, bool sizeToBitmap) {
    QWidget* w = GetDlgItem(id);
    if (!w) return;
    // On a screen scaled by 2 the picture drawn at twice the pixels; its ratio
    // keeps the size it covers, so layouts and sizes stay in logical pixels.
    const QPixmap pixmap = KRNResources::Bitmap(bitmapId, w->devicePixelRatioF());
    const QSize size = pixmap.deviceIndependentSize().toSize();
    if (auto* label = qobject_cast<QLabel*>(w)) {
        label->setPixmap(pixmap);
    } else if (auto* button = qobject_cast<QAbstractButton*>(w)) {
        QIcon icon;
        AddBitmap(icon, bitmapId, QIcon::Normal);
        button->setIcon(icon);
        button->setIconSize(size);
    }
    if (sizeToBitmap && !pixmap.isNull()) w->resize(size);
}
