// Placeholder while the pipeline is put together: copies the compiled library.
#include <fstream>
int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    std::ifstream in(argv[1], std::ios::binary);
    std::ofstream out(argv[2], std::ios::binary);
    out << in.rdbuf();
    return out ? 0 : 1;
}
