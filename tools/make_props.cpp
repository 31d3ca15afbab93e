// Writes the settings that the program is shipped with: make_props FILE
#include <exception>
#include <iostream>

#include "app/props_record.h"
#include "base/files.h"

int main(int count, char** words) {
  if (count != 2) {
    std::cerr << "make_props FILE\n";
    return 2;
  }
  try {
    base::writeFile(words[1], app::encodeProps(app::defaultProps()));
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "make_props: " << error.what() << "\n";
    return 1;
  }
}
