#include "project/frmserver.h"

#include <algorithm>
#include <type_traits>

#include "app/mdlsaerto.h"
#include "project/publish_texts.h"

namespace project {
namespace {

constexpr int kPoll = 30;  // milliseconds in which the window does nothing

}  // namespace

bool ServerForm::queryClose() {
  if (!running_) return true;
  stop_ = closeBehindRun_ = true;
  return false;
}

void ServerForm::tell(const std::string& text) {
  app::messageBox(bench_.platform(), text, caption(), app::frmBOXa::Kind::Message,
                  ui::IconBox::Sign::Warning);
}

void ServerForm::setRunning(bool on) {
  running_ = on;
  for (ui::Control* control : controls()) {
    const ui::ControlKind kind = control->kind();
    const bool stays = kind == ui::ControlKind::Label || kind == ui::ControlKind::ProgressBar ||
                       std::ranges::find(stayOpen_, control) != stayOpen_.end();
    if (!stays) control->setEnabled(!on);
  }
  stopButton_->setEnabled(on);
  if (on) stopButton_->setFocus();
}

bool ServerForm::run(const std::function<void()>& task) {
  stop_ = closeBehindRun_ = false;
  typedPassword_.reset();
  setRunning(true);
  bool good = false;
  std::string why;
  ui::atGate([&] {
    try {
      work_.start(task);
      for (PublishWork::News news = work_.wait(kPoll);; news = work_.wait(kPoll)) {
        take(news);
        if (news.question && !stop_) work_.answer(answerTo(*news.question));
        if (news.ended) break;
        bench_.platform().pumpEvents();
        if (stop_) work_.stop();
      }
      work_.finish();
      good = !stop_;
    } catch (const publish::Failure& failure) {
      why = textOf(failure);
      if (failure.fault() == publish::Fault::Login) typedPassword_.reset();
      if (failure.fault() != publish::Fault::Stopped) tell(why);
    }
  });
  if (stop_) why = textOf(publish::Failure(publish::Fault::Stopped));
  setRunning(false);
  ended(why);
  if (closeBehindRun_) close();
  return good;
}

std::optional<std::string> ServerForm::answerTo(const PublishQuestion& question) {
  const auto agreed = [this](const std::string& text, ui::IconBox::Sign sign) -> std::optional<std::string> {
    const std::string answer =
        app::messageBox(bench_.platform(), text, caption(), app::frmBOXa::Kind::YesNo, sign);
    return answer == app::kAnswerYes ? std::optional<std::string>("") : std::nullopt;
  };
  return std::visit(
      [&](const auto& what) -> std::optional<std::string> {
        using What = std::decay_t<decltype(what)>;
        if constexpr (std::is_same_v<What, publish::Certificate>) {
          return agreed("სერვერის სერტიფიკატს არავინ ადასტურებს: " + what.why + "\r\n\r\nვისია: " +
                            what.subject + "\r\nვინ გასცა: " + what.issuer + "\r\nვადა: " + what.ends +
                            "\r\n" + what.fingerprint + "\r\n\r\nვენდოთ ამ ანგარიშისთვის?",
                        ui::IconBox::Sign::Warning);
        } else if constexpr (std::is_same_v<What, publish::HostKey>) {
          return agreed("ამ სერვერს პირველად ვუკავშირდებით: " + what.host + "\r\n\r\nმისი გასაღები:\r\n" +
                            what.type + " " + publish::fingerprint(what) +
                            "\r\n\r\nეს ნამდვილად ამ სერვერის გასაღებია?",
                        ui::IconBox::Sign::Question);
        } else if constexpr (std::is_same_v<What, PasswordQuestion>) {
          typedPassword_ = app::passwordBox(bench_.platform(),
                                            (what.again ? "პაროლი არ მიიღეს. კიდევ სცადეთ: " : "პაროლი: ") +
                                                publish::addressText(what.address),
                                            caption());
          return typedPassword_;
        } else {
          return app::passwordBox(
              bench_.platform(),
              (what.again ? "ფრაზა არასწორია. კიდევ სცადეთ: " : "გასაღების საიდუმლო ფრაზა: ") + what.keyFile,
              caption());
        }
      },
      question);
}

}  // namespace project
