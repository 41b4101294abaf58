# Every allocation and every opening of a file by the library goes through faults.cpp first.
target_link_options(test_oom PRIVATE
  -Wl,--wrap=malloc -Wl,--wrap=calloc -Wl,--wrap=realloc -Wl,--wrap=free -Wl,--wrap=fopen
  -Wl,--wrap=_ZnwmRKSt9nothrow_t) # operator new that answers null
