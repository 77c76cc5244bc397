/// A program that does nothing, with the libraries of the real one: what every call costs before
/// its first line.
int main() {
    return 0;
}
