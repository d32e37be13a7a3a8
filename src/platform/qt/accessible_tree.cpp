#include "platform/qt/accessible_tree.h"

#include <QAccessibleWidget>
#include <algorithm>
#include <utility>

#include "platform/forms/spoken.h"
#include "platform/qt/form_view.h"
#include "platform/qt/window.h"

namespace marrowfen {

/// Holds what has been announced last.
class AccessibleTree::Voice final : public QObject {
public:
    using QObject::QObject;
    QString said;
};

namespace {

using Children = QList<QAccessibleInterface*>;

/// A widget of ours whose children are others than its widgets.
class Branch : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    [[nodiscard]] virtual Children children() const = 0;
    [[nodiscard]] int childCount() const override { return static_cast<int>(children().size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override { return children().value(index, nullptr); }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(children().indexOf(const_cast<QAccessibleInterface*>(child)));
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        const Children all = children();
        const auto hit = std::find_if(all.rbegin(), all.rend(), [&](auto* c) { return c->rect().contains(x, y); });
        return hit == all.rend() ? nullptr : *hit;
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        for (QAccessibleInterface* child : children()) {
            if (child->state().focused) return child;
            if (QAccessibleInterface* inside = child->focusChild()) return inside;
        }
        return nullptr;
    }
};

class AccessibleForm final : public Branch {
public:
    explicit AccessibleForm(FormView& view)
        : Branch(&view,
                 view.form().design().level == Level::Message ? QAccessible::AlertMessage : QAccessible::Grouping),
          view_(view) {}
    [[nodiscard]] Children children() const override { return view_.accessible_parts(); }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (view_.is_dismissed() || kind != QAccessible::Name) return {};
        const std::string_view name = view_.form().design().spoken;
        return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = Branch::state();
        if (view_.is_dismissed()) return state;
        const Desktop& desktop = view_.form().desktop();
        state.active = desktop.active() == &view_.form();
        state.focused = state.active && view_.hasFocus() && desktop.ring().at() == nullptr;
        state.modal = view_.form().design().level == Level::Message;
        return state;
    }

private:
    FormView& view_;
};

class AccessibleWindow final : public Branch {
public:
    explicit AccessibleWindow(Window& window) : Branch(&window, QAccessible::Window) {}
    [[nodiscard]] Children children() const override {
        Children children;
        for (QObject* child : widget()->children()) {
            const auto* view = dynamic_cast<FormView*>(child);
            if ((view != nullptr && !view->is_dismissed()) || dynamic_cast<AccessibleTree::Voice*>(child) != nullptr) {
                children.append(QAccessible::queryAccessibleInterface(child));
            }
        }
        return children;
    }
};

class AccessibleVoice final : public QAccessibleObject {
public:
    explicit AccessibleVoice(AccessibleTree::Voice& voice) : QAccessibleObject(&voice), voice_(voice) {}
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(voice_.parent());
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? voice_.said : QString();
    }

private:
    const AccessibleTree::Voice& voice_;
};

QAccessibleInterface* make(const QString&, QObject* object) {
    if (auto* view = dynamic_cast<FormView*>(object)) return new AccessibleForm(*view);
    if (auto* window = dynamic_cast<Window*>(object)) return new AccessibleWindow(*window);
    if (auto* voice = dynamic_cast<AccessibleTree::Voice*>(object)) return new AccessibleVoice(*voice);
    return nullptr;
}

FormView* view_of(const Form* form, const std::vector<FormView*>& views) {
    const auto view = std::ranges::find_if(views, [&](FormView* candidate) { return &candidate->form() == form; });
    return view == views.end() ? nullptr : *view;
}

void tell(QAccessibleInterface* whom, QAccessible::Event what) {
    if (whom == nullptr) return;
    QAccessibleEvent event(whom, what);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

AccessibleTree::AccessibleTree(Window& window) : voice_(new Voice(&window)) { QAccessible::installFactory(make); }

AccessibleTree::~AccessibleTree() { QAccessible::removeFactory(make); }

bool AccessibleTree::has_readers() { return QAccessible::isActive(); }

void AccessibleTree::catch_up(const Desktop& desktop, const std::vector<FormView*>& views) {
    if (!has_readers()) return;
    tell_focus(desktop, views);
    const auto news = announcer_.news(desktop);
    for (Control* control : news.renamed) {
        if (FormView* view = view_of(&control->form(), views))
            tell(view->accessible(*control), QAccessible::NameChanged);
    }
    if (!news.said.empty()) say(news.said);
}

// The toolkit itself tells when one of its widgets takes the focus; here it goes to what is only painted, and back.
void AccessibleTree::tell_focus(const Desktop& desktop, const std::vector<FormView*>& views) {
    Control* ringed = desktop.ring().at();
    if (ringed_ == ringed) return;
    const Form* form = ringed != nullptr ? &ringed->form() : desktop.active();
    FormView* view = view_of(form, views);
    if (view == nullptr) return;
    QWidget* field = view->widget_for_focus();
    ringed_ = ringed;
    tell(ringed != nullptr  ? view->accessible(*ringed)
         : field != nullptr ? QAccessible::queryAccessibleInterface(field)
                            : QAccessible::queryAccessibleInterface(view),
         QAccessible::Focus);
    // The other side of a switch is called the same: without this it would not be read.
    if (ringed == nullptr || part_of(*ringed) != Part::Switch) return;
    QAccessible::State checked;
    checked.checked = true;
    QAccessibleStateChangeEvent event(view->accessible(*ringed), checked);
    QAccessible::updateAccessibility(&event);
}

// A notice is read when it comes on the screen.
void AccessibleTree::say(const std::string& news) {
    voice_->said = QString::fromStdString(news);
    QAccessibleInterface* voice = QAccessible::queryAccessibleInterface(voice_);
    tell(voice, QAccessible::NameChanged);
    tell(voice, QAccessible::ObjectShow);
}

}  // namespace marrowfen
