// Writes the settings that the program is shipped with: make_props FILE
#include <fstream>

#include "app/props_record.h"

int main(int count, char** words) {
  if (count != 2) return 2;
  std::ofstream file(words[1], std::ios::binary);
  file << app::encodeProps(app::defaultProps());
  file.close();
  return file ? 0 : 1;
}
