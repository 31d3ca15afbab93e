#include "ui/form.h"

namespace ui {

Control::Control(Form& form, int id) : id_(id) {
  form.controls_.push_back(this);
}

void Control::setCaption(Text caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  tell(Aspect::Text);
}

void Control::setEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  tell(Aspect::Enabled);
}

void Control::setVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  tell(Aspect::Visible);
}

void Form::setCaption(Text caption) {
  caption_ = std::move(caption);
  if (peer_ != nullptr) peer_->captionChanged();
}

void Form::setHeight(int height) {
  if (height == height_) return;
  height_ = height;
  if (peer_ != nullptr) peer_->heightChanged();
}

void Form::moveOff(const ScreenArea& area) {
  if (peer_ != nullptr) peer_->moveOff(area);
}

void Form::open(FormPeer* peer) {
  peer_ = peer;
  closed_ = false;
}

void Form::close() {
  closed_ = true;
  if (peer_ != nullptr) peer_->close();
}

}  // namespace ui
