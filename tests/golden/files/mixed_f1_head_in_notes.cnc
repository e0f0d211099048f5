    n` g`  x  `  y `   z
%
    n` g`   x `    z
    00M30
   M
