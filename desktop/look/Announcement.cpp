#include "desktop/look/Announcement.h"

#include <QAccessible>
#include <QPointer>
#include <QWidget>
#include <array>

namespace clb {

namespace {

/// A notification of the window. Readers read one when it is shown; they pass over the toolkit's
/// alerts on some desktops.
class Notification : public QAccessibleInterface {
public:
    Notification(QWidget& part, QString text) : part_(&part), text_(std::move(text)) {}

    [[nodiscard]] bool isValid() const override { return !part_.isNull(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override
    {
        return part_ ? part_->window()->windowHandle() : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return part_ ? QAccessible::queryAccessibleInterface(part_->window()) : nullptr;
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override
    {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override
    {
        return -1;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? text_ : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override
    {
        return part_ ? QRect(part_->mapToGlobal(QPoint()), part_->size()) : QRect();
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }

private:
    QPointer<QWidget> part_;
    QString text_;
};

/// Readers ask for the text after the event, so the last few are kept.
QAccessible::Id Keep(QAccessibleInterface* notification)
{
    static std::array<QAccessible::Id, 8> kept{};
    static std::size_t next = 0;
    QAccessible::Id& place = kept.at(next++ % kept.size());
    if (place != 0 && QAccessible::accessibleInterface(place))
        QAccessible::deleteAccessibleInterface(place);
    place = QAccessible::registerAccessibleInterface(notification);
    return place;
}

}  // namespace

void Announce(QWidget& part, const QString& text)
{
    if (!QAccessible::isActive() || text.isEmpty())
        return;
    QAccessibleEvent alert(&part, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
    QAccessibleEvent shown(QAccessible::accessibleInterface(Keep(new Notification(part, text))),
                           QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

void NamePart(QWidget& part, const QString& name)
{
    if (part.accessibleName() != name)
        part.setAccessibleName(name);
}

}  // namespace clb
