// An engine that has nothing to do: both sides of a comparison start it.
int main(void) {
  return 0;
}
