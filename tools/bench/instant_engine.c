// An engine that does nothing. Both sides of a comparison start it.
int main(void) {
  return 0;
}
