// A field that takes the next key pressed in it as a key word of the key map and shows
// the key's name. It takes one key each time it gets the focus or is clicked, Tab and
// Esc included; after that keys do what they do in the dialog, so that Tab leaves the
// field and Enter presses the default button.
#pragma once
#include <QLineEdit>
#include <cstdint>

class QKeyEvent;

namespace zol {

class TKeyCaptureEdit : public QLineEdit {
    Q_OBJECT
public:
    enum class Role {
        FirstKey,   // a key of the primary table: keys that type a character are refused
        SecondKey,  // the key after a prefix key, as the prefix table holds it
    };
    TKeyCaptureEdit(Role role, QWidget* parent);

    // The key word of the last key pressed; 0 until one that can be mapped is pressed.
    uint16_t key() const { return problem_.isEmpty() ? key_ : 0; }
    // Why the last key pressed cannot be mapped; empty when it can.
    const QString& problem() const { return problem_; }
    void clearKey();

Q_SIGNALS:
    void keyChanged();

protected:
    bool event(QEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void mousePressEvent(QMouseEvent* e) override;

private:
    void take(const QKeyEvent& e);

    Role role_;
    bool waiting_ = false;
    uint16_t key_ = 0;
    QString problem_;
};

}  // namespace zol
