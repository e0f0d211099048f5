%
    N` G`  X  `  Y `   Z ` F  
   123 00-12345-1234-12345F678 remark
     7 91 7     8    9     1   
   123cdeghijklmnopqrstuvwxy  a b 
   MI
