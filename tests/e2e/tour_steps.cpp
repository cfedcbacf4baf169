#include "tour_steps.h"

#include <cstdio>

namespace ondrel::e2e {

void Tell(const std::string& line) {
  std::printf("%s\n", line.c_str());
  std::fflush(stdout);
}

void PlaceView(const Program& program, const std::string& title, int command, const Rect& place) {
  program.Command(command);
  program.WaitForTopView(title);
  program.View(title).MoveTo(place);
  WaitFor("the view '" + title + "' to take its place",
          [&] { return program.View(title).PlaceInParent() == place; });
}

void Keep(const Program& program, const Window& view, const std::string& output,
          const std::string& name) {
  (void)program.ClientPicture(view);
  SavePng(TakeScreen(view.Place()), output + "\\" + name + ".png");
  Tell("  " + name + ".png");
}

void KeepFrame(const Program& program, const std::string& output, const std::string& name) {
  SavePng(TakeScreen(program.Frame().Place()), output + "\\" + name + ".png");
  Tell("  " + name + ".png");
}

}  // namespace ondrel::e2e
