%
    n` g`   x `    z
    00m30
   m
