%
    n` g`  x  `  y `   z
    00m30
   m
