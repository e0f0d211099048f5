%
%
    N` G`  X  `  Y `   Z ` F  
    00 91
    01M30
   M
