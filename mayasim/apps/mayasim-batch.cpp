// mayasim-batch: runs scenes and MEL without a UI.
int main()
{
    return 0;
}
