// Writes to an array on the stack, which needs protection.
#include <cstring>

int main(int count, char** arguments) {
  char copy[16];
  std::strcpy(copy, arguments[count - 1]);
  return copy[0];
}
